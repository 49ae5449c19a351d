// SPDX-License-Identifier: MIT
#include "bench/messages/Library.h"

#include <benchmark/benchmark.h>
#include <cctype>
#include <climits>
#include <fstream>
#include <memory>
#include <string_view>

extern "C" {
// What the other headers are built on comes first.
#include <config.h>
#include <lib.h>

#include <istream-base64.h>
#include <istream.h>
#include <message-address.h>
#include <message-date.h>
#include <message-header-decode.h>
#include <message-parser.h>
#include <rfc822-parser.h>
#include <str.h>
}

namespace bench {

namespace {

// The library ends programs that go without its leave.
const bool isReady = (lib_init(), lib_set_clean_exit(true), true);

struct Unref
{
    void operator()(istream* stream) const { i_stream_unref(&stream); }
    void operator()(pool* memory) const { pool_unref(&memory); }
};
using Stream = std::unique_ptr<istream, Unref>;
using Pool = std::unique_ptr<pool, Unref>;

Stream openFile(const std::string& path)
{
    constexpr std::size_t kBlock = 64 * 1024;
    return Stream(i_stream_create_file(path.c_str(), kBlock));
}

bool isNamed(const message_header_line& field, std::string_view lower)
{
    const std::string_view name(field.name, field.name_len);
    return std::equal(name.begin(), name.end(), lower.begin(), lower.end(),
                      [](unsigned char a, char b) { return std::tolower(a) == b; });
}

std::size_t decodedLength(const unsigned char* text, std::size_t size)
{
    string_t* const decoded = t_str_new(size);
    message_header_decode_utf8(text, size, decoded, nullptr);
    benchmark::DoNotOptimize(str_data(decoded));
    return str_len(decoded);
}

void readAddresses(const message_header_line& field, pool_t memory)
{
    const message_address* address = message_address_parse(
        memory, field.full_value, field.full_value_len, UINT_MAX, message_address_parse_flags(0));
    for (; address != nullptr; address = address->next) {
        if (address->name != nullptr)
            decodedLength(reinterpret_cast<const unsigned char*>(address->name),
                          std::string_view(address->name).size());
    }
}

bool hasName(const message_header_line& field)
{
    rfc822_parser_context parser;
    rfc822_parser_init(&parser, field.full_value, field.full_value_len, nullptr);
    rfc822_skip_lwsp(&parser);
    string_t* const type = t_str_new(64);
    string_t* const value = t_str_new(64);
    const char* key = nullptr;
    bool isFound = false;
    if (rfc822_parse_content_type(&parser, type) >= 0) {
        while (rfc822_parse_content_param(&parser, &key, value) > 0)
            isFound = isFound || std::string_view(key) == "name";
    }
    benchmark::DoNotOptimize(str_data(type));
    rfc822_parser_deinit(&parser);
    return isFound;
}

void readEnvelope(const message_header_line& field, pool_t memory, Findings& found)
{
    time_t date = 0;
    int zone = 0;
    if (isNamed(field, "from") || isNamed(field, "to"))
        readAddresses(field, memory);
    else if (isNamed(field, "subject"))
        found.subjectLength = decodedLength(field.full_value, field.full_value_len);
    else if (isNamed(field, "date") &&
             message_date_parse(field.full_value, field.full_value_len, &date, &zone))
        found.date = date;
}

// The fields pass by once, each of several lines line by line until it is asked for whole.
void readField(const message_block& block, pool_t memory, Findings& found)
{
    message_header_line& field = *block.hdr;
    if (field.continues) {
        field.use_full_value = true;
        return;
    }
    T_BEGIN
    {
        if (isNamed(field, "content-type"))
            found.names += hasName(field) ? 1 : 0;
        else if (block.part->parent == nullptr)
            readEnvelope(field, memory, found);
    }
    T_END;
}

int leavesOf(const message_part* part)
{
    int leaves = 0;
    while (part != nullptr) {
        leaves += part->children == nullptr ? 1 : 0;
        const message_part* next = part->children != nullptr ? part->children : part->next;
        for (; next == nullptr && part->parent != nullptr; part = part->parent)
            next = part->parent->next;
        part = next;
    }
    return leaves;
}

// The library keeps where each part stands, and of its fields nothing.
message_part* partsOf(istream* stream, pool_t memory, Findings& found)
{
    message_parser_settings settings = {};
    settings.hdr_flags = message_header_parser_flags(MESSAGE_HEADER_PARSER_FLAG_SKIP_INITIAL_LWSP |
                                                     MESSAGE_HEADER_PARSER_FLAG_CLEAN_ONELINE);
    settings.flags = MESSAGE_PARSER_FLAG_SKIP_BODY_BLOCK;
    settings.max_nested_mime_parts = INT_MAX;
    settings.max_total_mime_parts = INT_MAX;
    message_parser_ctx* parser = message_parser_init(memory, stream, &settings);
    message_block block;
    while (message_parser_parse_next_block(parser, &block) > 0) {
        if (block.hdr != nullptr && !block.hdr->eoh)
            readField(block, memory, found);
    }
    message_part* parts = nullptr;
    message_parser_deinit(&parser, &parts);
    return parts;
}

Pool newPool()
{
    return Pool(pool_alloconly_create("message", 4096));
}

Findings readAll(istream* stream)
{
    Findings found;
    const Pool memory = newPool();
    found.parts = leavesOf(partsOf(stream, memory.get(), found));
    return found;
}

bool copy(istream* from, std::ofstream& to)
{
    const unsigned char* data = nullptr;
    std::size_t size = 0;
    while (i_stream_read_more(from, &data, &size) > 0) {
        to.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
        i_stream_skip(from, size);
    }
    return from->stream_errno == 0 && to.flush().good();
}

} // namespace

bool canDo(Job job)
{
    return isReady && job != Job::Build && job != Job::Encode && job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    const Stream stream(i_stream_create_from_data(text.data(), text.size()));
    return readAll(stream.get());
}

Findings parseFile(const std::string& path)
{
    const Stream stream = openFile(path);
    return readAll(stream.get());
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    const Stream stream = openFile(path);
    const Pool memory = newPool();
    Findings found;
    const message_part* part = partsOf(stream.get(), memory.get(), found)->children->next;
    const Stream body(i_stream_create_range(stream.get(),
                                            part->physical_pos + part->header_size.physical_size,
                                            part->body_size.physical_size));
    const Stream bytes(i_stream_create_base64_decoder(body.get()));
    std::ofstream out(to, std::ios::binary);
    return copy(bytes.get(), out);
}

std::size_t buildMessage(const std::vector<std::string>&)
{
    return 0;
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    std::string shown;
    T_BEGIN
    {
        string_t* const text = t_str_new(wire.size());
        message_header_decode_utf8(reinterpret_cast<const unsigned char*>(wire.data()), wire.size(),
                                   text, nullptr);
        benchmark::DoNotOptimize(str_data(text));
        if (isShown)
            shown.assign(str_c(text), str_len(text));
    }
    T_END;
    return shown;
}

} // namespace bench
