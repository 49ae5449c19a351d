// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_Util.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct WordsOptions
{
    std::string text;
    int charset = CHARSET_UTF_8;
};

void decodeWords(const WordsOptions& options, Session& session)
{
    QString decoded;
    EMAIL_Util::decode_2047_String(QCString(options.text.c_str()), decoded, options.charset);
    session.print(printableLine(decoded) + '\n');
}

void encodeWords(const WordsOptions& options, Session& session)
{
    QCString encoded;
    EMAIL_Util::encode_2047_String(QString::fromUtf8(options.text.c_str()), options.charset,
                                   encoded);
    session.print(QByteArray(encoded) + '\n');
}

void addDirection(const Arguments& words, Session& session, const std::string& name,
                  const std::string& description, const std::string& footer,
                  void (*run)(const WordsOptions&, Session&))
{
    const auto options = std::make_shared<WordsOptions>();
    Arguments arguments(words, name, description, footer);
    arguments.value("TEXT", options->text, "The text");
    arguments.charset(options->charset);
    arguments.run([options, run, &session] { run(*options, session); });
}

} // namespace

void addWords(CLI::App& tool, Session& session)
{
    Arguments words(tool, "words", "Decode and encode the encoded words of headers",
                    "Example:\n"
                    "  tarvomime words decode '=?utf-8?Q?caf=C3=A9?='");
    words.requireCommand();
    addDirection(words, session, "decode", "Decode a field body that holds encoded words",
                 "Text without encoded words is read in the charset given.\n"
                 "\n"
                 "Example:\n"
                 "  tarvomime words decode '=?utf-8?Q?caf=C3=A9?='",
                 decodeWords);
    addDirection(words, session, "encode", "Encode text for a header field, if it needs it",
                 "The result has CR LF and a tab between words, as a folded field has. Text that\n"
                 "the charset cannot hold is encoded in utf-8.\n"
                 "\n"
                 "Example:\n"
                 "  tarvomime words encode 'Grüße aus Köln' --charset iso-8859-1",
                 encodeWords);
}

} // namespace tarvomime::tool
