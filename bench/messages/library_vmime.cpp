// SPDX-License-Identifier: MIT
#include "bench/messages/EpochTime.h"
#include "bench/messages/FileText.h"
#include "bench/messages/Library.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <vmime/contentTypeField.hpp>
#include <vmime/platforms/posix/posixHandler.hpp>
#include <vmime/vmime.hpp>

namespace bench {

namespace {

const bool isReady = (vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(), true);

const vmime::charset kUtf8("utf-8");

vmime::shared_ptr<vmime::message> parsed(const std::string& text)
{
    auto message = vmime::make_shared<vmime::message>();
    message->parse(text);
    return message;
}

void readPart(vmime::bodyPart& part, Findings& found)
{
    if (part.getBody()->getPartCount() == 0)
        ++found.parts;
    const auto header = part.getHeader();
    if (!header->hasField("Content-Type"))
        return;
    const auto type = header->findField<vmime::contentTypeField>("Content-Type");
    benchmark::DoNotOptimize(type->getValue().get());
    found.names += type->hasParameter("name") ? 1 : 0;
}

void readParts(const vmime::shared_ptr<vmime::bodyPart>& top, Findings& found)
{
    std::vector<vmime::shared_ptr<vmime::bodyPart>> waiting{top};
    while (!waiting.empty()) {
        const auto part = waiting.back();
        waiting.pop_back();
        readPart(*part, found);
        for (std::size_t i = 0; i < part->getBody()->getPartCount(); ++i)
            waiting.push_back(part->getBody()->getPartAt(i));
    }
}

Findings readAll(const vmime::shared_ptr<vmime::message>& message)
{
    Findings found;
    const auto header = message->getHeader();
    const auto from = header->From()->getValue<vmime::mailbox>();
    benchmark::DoNotOptimize(from->getName().getConvertedText(kUtf8).size());
    benchmark::DoNotOptimize(header->To()->getValue().get());
    found.subjectLength =
        header->Subject()->getValue<vmime::text>()->getConvertedText(kUtf8).size();
    const auto date = header->Date()->getValue<vmime::datetime>();
    found.date = epochTime(date->getYear(), date->getMonth(), date->getDay(), date->getHour(),
                           date->getMinute(), date->getSecond(), 0) -
                 date->getZone() * 60;
    readParts(message, found);
    return found;
}

} // namespace

bool canDo(Job job)
{
    return isReady && job != Job::Build && job != Job::Encode && job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    return readAll(parsed(text));
}

Findings parseFile(const std::string& path)
{
    return parseAndRead(std::string(FileText(path.c_str()).view()));
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    const auto message = parsed(std::string(FileText(path.c_str()).view()));
    std::ofstream file(to, std::ios::binary);
    vmime::utility::outputStreamAdapter out(file);
    message->getBody()->getPartAt(1)->getBody()->getContents()->extract(out);
    return file.flush().good();
}

std::size_t buildMessage(const std::vector<std::string>&)
{
    return 0;
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    const auto text = vmime::text::decodeAndUnfold(wire);
    std::string shown = text->getConvertedText(kUtf8);
    benchmark::DoNotOptimize(shown.data());
    return isShown ? shown : std::string();
}

} // namespace bench
