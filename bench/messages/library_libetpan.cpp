// SPDX-License-Identifier: MIT
#include "bench/messages/EpochTime.h"
#include "bench/messages/FileText.h"
#include "bench/messages/Library.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <libetpan/libetpan.h>
#include <memory>
#include <string_view>

namespace bench {

namespace {

struct Free
{
    void operator()(mailmime* mime) const { mailmime_free(mime); }
    void operator()(char* text) const { std::free(text); }
};
using Message = std::unique_ptr<mailmime, Free>;

Message parsed(std::string_view text)
{
    std::size_t position = 0;
    mailmime* mime = nullptr;
    mailmime_parse(text.data(), text.size(), &position, &mime);
    return Message(mime);
}

std::string decoded(const char* text)
{
    std::size_t position = 0;
    char* result = nullptr;
    mailmime_encoded_phrase_parse("iso-8859-1", text, std::strlen(text), &position, "utf-8",
                                  &result);
    const std::unique_ptr<char, Free> owned(result);
    return result == nullptr ? std::string() : std::string(result);
}

template <class Item, class Take>
void forEach(const clist* list, Take take)
{
    for (clistiter* cell = list == nullptr ? nullptr : clist_begin(list); cell != nullptr;
         cell = clist_next(cell))
        take(*static_cast<Item*>(clist_content(cell)));
}

void readMailbox(const mailimf_mailbox& mailbox)
{
    if (mailbox.mb_display_name != nullptr)
        benchmark::DoNotOptimize(decoded(mailbox.mb_display_name).size());
}

void readAddress(const mailimf_address& address)
{
    if (address.ad_type == MAILIMF_ADDRESS_MAILBOX)
        readMailbox(*address.ad_data.ad_mailbox);
}

void readField(const mailimf_field& field, Findings& found)
{
    const auto& data = field.fld_data;
    if (field.fld_type == MAILIMF_FIELD_SUBJECT) {
        found.subjectLength = decoded(data.fld_subject->sbj_value).size();
    } else if (field.fld_type == MAILIMF_FIELD_ORIG_DATE) {
        const mailimf_date_time& date = *data.fld_orig_date->dt_date_time;
        found.date = epochTime(date.dt_year, date.dt_month, date.dt_day, date.dt_hour, date.dt_min,
                               date.dt_sec, date.dt_zone);
    } else if (field.fld_type == MAILIMF_FIELD_FROM) {
        forEach<mailimf_mailbox>(data.fld_from->frm_mb_list->mb_list, readMailbox);
    } else if (field.fld_type == MAILIMF_FIELD_TO) {
        forEach<mailimf_address>(data.fld_to->to_addr_list->ad_list, readAddress);
    }
}

void readType(const mailmime& part, Findings& found)
{
    if (part.mm_content_type == nullptr)
        return;
    forEach<mailmime_parameter>(part.mm_content_type->ct_parameters,
                                [&](const mailmime_parameter& parameter) {
                                    if (std::strcmp(parameter.pa_name, "name") == 0)
                                        ++found.names;
                                });
}

void readParts(const mailmime& top, Findings& found)
{
    std::vector<const mailmime*> waiting{&top};
    while (!waiting.empty()) {
        const mailmime& part = *waiting.back();
        waiting.pop_back();
        readType(part, found);
        if (part.mm_type == MAILMIME_SINGLE)
            ++found.parts;
        else if (part.mm_type == MAILMIME_MESSAGE && part.mm_data.mm_message.mm_msg_mime != nullptr)
            waiting.push_back(part.mm_data.mm_message.mm_msg_mime);
        else if (part.mm_type == MAILMIME_MULTIPLE)
            forEach<mailmime>(part.mm_data.mm_multipart.mm_mp_list,
                              [&](const mailmime& each) { waiting.push_back(&each); });
    }
}

Findings readAll(const Message& message)
{
    Findings found;
    if (message == nullptr)
        return found;
    const auto& data = message->mm_data.mm_message;
    if (data.mm_fields != nullptr)
        forEach<mailimf_field>(data.mm_fields->fld_list,
                               [&](const mailimf_field& field) { readField(field, found); });
    readParts(*message, found);
    return found;
}

// The second part of a multipart message.
const mailmime_data& attachmentOf(const Message& message)
{
    const mailmime& multipart = *message->mm_data.mm_message.mm_msg_mime;
    clistiter* const second = clist_next(clist_begin(multipart.mm_data.mm_multipart.mm_mp_list));
    return *static_cast<mailmime*>(clist_content(second))->mm_data.mm_single;
}

mailimf_fields* newEnvelope()
{
    constexpr std::string_view fields = "From: joerg@example.org\r\nTo: anna@example.com\r\n"
                                        "Subject: Minutes of the meeting\r\n"
                                        "Date: Tue, 12 Nov 2024 10:00:00 +0100\r\n";
    std::size_t position = 0;
    mailimf_fields* result = nullptr;
    mailimf_fields_parse(fields.data(), fields.size(), &position, &result);
    return result;
}

mailmime* newAttachment(const std::string& bytes)
{
    // The library frees what it is given, and may not free what the caller keeps.
    char* const copy = static_cast<char*>(std::malloc(bytes.size()));
    std::memcpy(copy, bytes.data(), bytes.size());
    mailmime* const part =
        mailmime_new_empty(mailmime_content_new_with_str("application/octet-stream"),
                           mailmime_fields_new_encoding(MAILMIME_MECHANISM_BASE64));
    mailmime_set_body_text(part, copy, bytes.size());
    return part;
}

} // namespace

bool canDo(Job job)
{
    return job != Job::Encode && job != Job::ParseInPlace;
}

Findings parseAndRead(const std::string& text)
{
    return readAll(parsed(text));
}

Findings parseFile(const std::string& path)
{
    const FileText file(path.c_str());
    return readAll(parsed(file.view()));
}

bool saveAttachment(const std::string& path, const std::string& to)
{
    const FileText file(path.c_str());
    const Message message = parsed(file.view());
    const mailmime_data& data = attachmentOf(message);
    std::size_t position = 0;
    char* bytes = nullptr;
    std::size_t length = 0;
    mailmime_part_parse(data.dt_data.dt_text.dt_data, data.dt_data.dt_text.dt_length, &position,
                        data.dt_encoding, &bytes, &length);
    std::ofstream out(to, std::ios::binary);
    out.write(bytes, static_cast<std::streamsize>(length));
    mailmime_decoded_part_free(bytes);
    return out.flush().good();
}

std::size_t buildMessage(const std::vector<std::string>& attachments)
{
    const Message message(mailmime_new_message_data(nullptr));
    mailmime_set_imf_fields(message.get(), newEnvelope());
    mailmime* const multipart = mailmime_multiple_new("multipart/mixed");
    mailmime_add_part(message.get(), multipart);
    std::vector<char*> bodies;
    for (const std::string& attachment : attachments) {
        mailmime* const part = newAttachment(attachment);
        bodies.push_back(const_cast<char*>(part->mm_data.mm_single->dt_data.dt_text.dt_data));
        mailmime_add_part(multipart, part);
    }
    MMAPString* const out = mmap_string_new("");
    int column = 0;
    mailmime_write_mem(out, &column, message.get());
    const std::size_t length = out->len;
    mmap_string_free(out);
    for (char* body : bodies)
        std::free(body);
    return length;
}

std::string decodeSubject(const std::string& wire, bool isShown)
{
    std::string text = decoded(wire.c_str());
    benchmark::DoNotOptimize(text.data());
    return isShown ? text : std::string();
}

} // namespace bench
