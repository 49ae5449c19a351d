// SPDX-License-Identifier: MIT
#include "bench/messages/Library.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <fcntl.h>
#include <gmime/gmime.h>
#include <memory>

namespace bench {

namespace {

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Unref>;

const bool isReady = (g_mime_init(), true);

Owned<GMimeMessage> messageFrom(GMimeStream* stream)
{
    const Owned<GMimeParser> parser(g_mime_parser_new_with_stream(stream));
    return Owned<GMimeMessage>(g_mime_parser_construct_message(parser.get(), nullptr));
}

void readPart(GMimeObject*, GMimeObject* part, void* data)
{
    auto& found = *static_cast<Findings*>(data);
    benchmark::DoNotOptimize(g_mime_object_get_content_type(part));
    if (GMIME_IS_PART(part)) {
        ++found.parts;
        found.names += g_mime_part_get_filename(GMIME_PART(part)) == nullptr ? 0 : 1;
    }
    if (GMIME_IS_MESSAGE_PART(part)) {
        GMimeMessage* message = g_mime_message_part_get_message(GMIME_MESSAGE_PART(part));
        g_mime_message_foreach(message, readPart, data);
    }
}

void readAddresses(GMimeMessage* message, GMimeAddressType type)
{
    InternetAddressList* list = g_mime_message_get_addresses(message, type);
    char* text = internet_address_list_to_string(list, nullptr, FALSE);
    benchmark::DoNotOptimize(text);
    g_free(text);
}

Findings readAll(GMimeMessage* message)
{
    Findings found;
    if (message == nullptr)
        return found;
    readAddresses(message, GMIME_ADDRESS_TYPE_FROM);
    readAddresses(message, GMIME_ADDRESS_TYPE_TO);
    const char* subject = g_mime_message_get_subject(message);
    found.subjectLength = subject == nullptr ? 0 : std::strlen(subject);
    GDateTime* date = g_mime_message_get_date(message);
    found.date = date == nullptr ? 0 : g_date_time_to_unix(date);
    g_mime_message_foreach(message, readPart, &found);
    return found;
}

Owned<GMimeStream> openFile(const std::string& path, const char* mode)
{
    return Owned<GMimeStream>(g_mime_stream_fs_open(
        path.c_str(), std::strcmp(mode, "r") == 0 ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC, 0600,
        nullptr));
}

} // namespace

bool canDo(Job job)
{
    return isReady && job != Job::Build && job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    const Owned<GMimeStream> stream(g_mime_stream_mem_new_with_buffer(text.data(), text.size()));
    return readAll(messageFrom(stream.get()).get());
}

Findings parseFile(const std::string& path)
{
    const Owned<GMimeStream> stream = openFile(path, "r");
    return readAll(messageFrom(stream.get()).get());
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    const Owned<GMimeStream> stream = openFile(path, "r");
    const Owned<GMimeMessage> message = messageFrom(stream.get());
    GMimeObject* top = g_mime_message_get_mime_part(message.get());
    GMimeObject* part = g_mime_multipart_get_part(GMIME_MULTIPART(top), 1);
    const Owned<GMimeStream> out = openFile(to, "w");
    GMimeDataWrapper* content = g_mime_part_get_content(GMIME_PART(part));
    return g_mime_data_wrapper_write_to_stream(content, out.get()) >= 0 &&
           g_mime_stream_flush(out.get()) == 0;
}

std::size_t buildMessage(const std::vector<std::string>&)
{
    return 0;
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    char* text = g_mime_utils_header_decode_text(nullptr, wire.c_str());
    benchmark::DoNotOptimize(text);
    std::string shown = isShown ? text : "";
    g_free(text);
    return shown;
}

struct LibraryText
{
    std::string utf8;
};

LibraryText* newLibraryText(const std::string& utf8)
{
    return new LibraryText{utf8};
}

void deleteLibraryText(LibraryText* text)
{
    delete text;
}

std::string encodeSubject(const LibraryText& text, Language language, bool isShown)
{
    char* wire = g_mime_utils_header_encode_text(nullptr, text.utf8.c_str(), charsetName(language));
    benchmark::DoNotOptimize(wire);
    std::string shown = isShown ? wire : "";
    g_free(wire);
    return shown;
}

} // namespace bench
