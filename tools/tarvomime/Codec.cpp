// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StandardInput.h"
#include "utility/EMAIL_Util.h"

#include <memory>

namespace tarvomime::tool {

namespace {

enum class Direction { Encode, Decode };

struct CodecOptions
{
    Direction direction = Direction::Encode;
    std::string encoding;
    std::string file;
    std::string out;
};

// An estimate, for the progress bar: lines of 76 characters and CR LF carry 57 bytes in base64.
qint64 expectedSize(const CodecOptions& options, qint64 inputSize, int cte)
{
    if (cte != CTE_BASE64)
        return inputSize;
    return options.direction == Direction::Encode ? inputSize * 78 / 57 : inputSize * 57 / 78;
}

void convert(const CodecOptions& options, std::string_view input, Session& session)
{
    const int cte = EMAIL_Util::cteStrToEnum(options.encoding.c_str());
    const int size = static_cast<int>(input.size());
    writeResult(options.out, expectedSize(options, size, cte), session, [&](QFile* file) {
        if (options.direction == Direction::Encode)
            return EMAIL_Util::encWithCTE(input.data(), size, file, cte);
        return EMAIL_Util::decFromCTE(input.data(), size, file, cte, stopWhenInterrupted);
    });
}

void convertFile(const CodecOptions& options, Session& session)
{
    const InputFile file(options.file, Sizes::OrEmpty);
    if (file.isOpen())
        convert(options, file.bytes(), session);
    else
        session.complain(options.file, file.problem());
}

void convertStandardInput(const CodecOptions& options, Session& session)
{
    QByteArray input;
    if (readStandardInput(input, session))
        convert(options, {input.constData(), static_cast<std::size_t>(input.size())}, session);
}

void addCodec(CLI::App& tool, Session& session, Direction direction, const std::string& name,
              const std::string& description, const std::string& example)
{
    const auto options = std::make_shared<CodecOptions>();
    options->direction = direction;
    Arguments arguments(tool, name, description, example);
    arguments.chosenValue("ENCODING", options->encoding, {"base64", "quoted-printable"},
                          "base64 or quoted-printable");
    arguments.optionalValue("FILE", options->file, "The file to read; standard input if left out");
    arguments.out(options->out);
    arguments.run([options, &session] {
        if (options->file.empty())
            convertStandardInput(*options, session);
        else
            convertFile(*options, session);
    });
}

} // namespace

void addEncode(CLI::App& tool, Session& session)
{
    addCodec(tool, session, Direction::Encode, "encode", "Encode bytes for a message body",
             "Lines end in CR LF, as in a message. A file is mapped and streamed; a progress bar\n"
             "shows where that takes longer than a second.\n"
             "\n"
             "Example:\n"
             "  tarvomime encode base64 photo.jpg --out photo.txt");
}

void addDecode(CLI::App& tool, Session& session)
{
    addCodec(tool, session, Direction::Decode, "decode", "Decode the bytes of a message body",
             "Bytes that do not belong to the encoding are skipped or kept, never an error.\n"
             "\n"
             "Example:\n"
             "  tarvomime decode base64 photo.txt --out photo.jpg\n"
             "  printf 'caf=C3=A9' | tarvomime decode quoted-printable");
}

} // namespace tarvomime::tool
