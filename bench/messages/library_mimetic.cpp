// SPDX-License-Identifier: MIT
#include "bench/messages/EpochTime.h"
#include "bench/messages/Library.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <mimetic/mimetic.h>
#include <mimetic/rfc822/datetime.h>
#include <sstream>

namespace bench {

namespace {

long long dateOf(const mimetic::MimeEntity& message)
{
    const mimetic::DateTime date(message.header().field("Date").value());
    return epochTime(date.year(), date.month().ordinal(), date.day(), date.hour(), date.minute(),
                     date.second(), date.zone().ordinal());
}

void readParts(const mimetic::MimeEntity& top, Findings& found)
{
    std::vector<const mimetic::MimeEntity*> waiting{&top};
    while (!waiting.empty()) {
        const mimetic::MimeEntity& part = *waiting.back();
        waiting.pop_back();
        const mimetic::ContentType& type = part.header().contentType();
        benchmark::DoNotOptimize(type.type().size());
        found.names += type.param("name").empty() ? 0 : 1;
        if (part.body().parts().empty())
            ++found.parts;
        for (const mimetic::MimeEntity* each : part.body().parts())
            waiting.push_back(each);
    }
}

// The library leaves encoded words as they are.
Findings readAll(const mimetic::MimeEntity& message)
{
    Findings found;
    benchmark::DoNotOptimize(message.header().from().size());
    benchmark::DoNotOptimize(message.header().to().size());
    found.subjectLength = message.header().subject().size();
    found.date = dateOf(message);
    readParts(message, found);
    return found;
}

} // namespace

bool canDo(Job job)
{
    return job != Job::Decode && job != Job::Encode && job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    const mimetic::MimeEntity message(text.begin(), text.end());
    return readAll(message);
}

Findings parseFile(const std::string& path)
{
    mimetic::File file(path);
    const mimetic::MimeEntity message(file.begin(), file.end());
    return readAll(message);
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    mimetic::File file(path);
    const mimetic::MimeEntity message(file.begin(), file.end());
    const mimetic::MimeEntity* part = *std::next(message.body().parts().begin());
    std::ofstream out(to, std::ios::binary);
    mimetic::Base64::Decoder decoder;
    mimetic::decode(part->body().begin(), part->body().end(), decoder,
                    std::ostreambuf_iterator<char>(out));
    return out.flush().good();
}

std::size_t buildMessage(const std::vector<std::string>& attachments)
{
    mimetic::MultipartMixed message;
    message.header().from("joerg@example.org");
    message.header().to("anna@example.com");
    message.header().subject("Minutes of the meeting");
    message.header().push_back(mimetic::Field("Date", "Tue, 12 Nov 2024 10:00:00 +0100"));
    for (const std::string& attachment : attachments) {
        auto part = std::make_unique<mimetic::MimeEntity>();
        part->header().contentType("application/octet-stream");
        part->header().contentTransferEncoding("base64");
        part->header().contentDisposition("attachment; filename=figures.bin");
        part->body().set(attachment);
        part->body().code(mimetic::Base64::Encoder());
        message.body().parts().push_back(part.release());
    }
    std::ostringstream out;
    out << message;
    return out.str().size();
}

std::string decodeSubject(const std::string&, bool)
{
    return {};
}

} // namespace bench
