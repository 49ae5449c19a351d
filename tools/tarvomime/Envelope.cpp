// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Envelope.h"

#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/StandardInput.h"
#include "utility/EMAIL_MIME.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ctime>

namespace tarvomime::tool {

namespace {

/// The list splits at commas, so that one option may hold several addresses.
QString addressList(const std::vector<std::string>& addresses)
{
    std::string list;
    for (const std::string& address : addresses)
        list += list.empty() ? address : ',' + address;
    return QString::fromUtf8(list.c_str());
}

/// The bare address of "Name <address>": receipt fields carry no encoded words.
QString bareAddress(const std::string& address)
{
    const QString text = QString::fromUtf8(address.c_str());
    const int open = static_cast<int>(text.lastIndexOf('<'));
    const int close = static_cast<int>(text.lastIndexOf('>'));
    return open >= 0 && close > open ? text.mid(open + 1, close - open - 1) : text;
}

std::string withWireLineEnds(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        if (c == '\n' && (out.empty() || out.back() != '\r'))
            out += '\r';
        out += c;
    }
    return out;
}

} // namespace

std::string headerValueProblem(const std::string& value)
{
    const bool control = std::any_of(value.begin(), value.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < 0x20 && c != '\t') || byte == 0x7F;
    });
    return control ? "line breaks and control characters do not belong into a header" : "";
}

void addEnvelope(CLI::App& command, Envelope& envelope)
{
    envelope.charset = CHARSET_UTF_8;
    const auto header = [](CLI::Option* option, const char* type) {
        option->type_name(type)->check(headerValueProblem);
        return option;
    };
    header(command.add_option("--from", envelope.from, "The sender"), "ADDRESS")->required();
    header(command.add_option("--to", envelope.to, "A recipient; may be repeated"), "ADDRESS")
        ->required()
        ->allow_extra_args(false);
    header(command.add_option("--cc", envelope.cc, "A further recipient; may be repeated"),
           "ADDRESS")
        ->allow_extra_args(false);
    header(command.add_option("--subject", envelope.subject, "The subject"), "TEXT");
    command.add_option("--text", envelope.text, "The text; \"-\" reads it from standard input")
        ->type_name("TEXT");
    command.add_flag("--receipt", envelope.receipt, "Ask for a read receipt");
    addOut(command, envelope.out);
}

void applyEnvelope(const Envelope& envelope, EMAIL_MIME& message)
{
    message.mCharset = envelope.charset;
    message.setDefaultFileds();
    message.setFrom(QString::fromUtf8(envelope.from.c_str()));
    message.setTo(addressList(envelope.to));
    if (!envelope.cc.empty())
        message.setCc(addressList(envelope.cc));
    message.setDate(static_cast<unsigned long>(std::time(nullptr)));
    message.setSubject(QString::fromUtf8(envelope.subject.c_str()));
    if (envelope.receipt)
        message.addReceiptRequest(bareAddress(envelope.from));
}

bool readText(const Envelope& envelope, std::string& text, Session& session)
{
    text = envelope.text;
    if (envelope.text == "-") {
        QByteArray input;
        if (!readStandardInput(input, session))
            return false;
        text = input.toStdString();
    }
    text = withWireLineEnds(text);
    return true;
}

} // namespace tarvomime::tool
