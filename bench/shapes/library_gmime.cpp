// SPDX-License-Identifier: MIT
#include "bench/shapes/Library.h"

#include <gmime/gmime.h>

int parseMessage(const std::string& text)
{
    static const bool isReady = (g_mime_init(), true);
    GMimeStream* stream = g_mime_stream_mem_new_with_buffer(text.data(), text.size());
    GMimeParser* parser = g_mime_parser_new_with_stream(stream);
    GMimeMessage* message = g_mime_parser_construct_message(parser, nullptr);
    int result = isReady ? 1 : 0;
    if (message != nullptr) {
        result += internet_address_list_length(
                      g_mime_message_get_addresses(message, GMIME_ADDRESS_TYPE_TO)) > 0;
        GMimeObject* top = g_mime_message_get_mime_part(message);
        result += top != nullptr && g_mime_object_get_content_type(top) != nullptr;
        g_object_unref(message);
    }
    g_object_unref(parser);
    g_object_unref(stream);
    return result;
}
