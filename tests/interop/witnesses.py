# SPDX-License-Identifier: MIT
"""Readers that are not this library: each turns a message into the tree that the samples describe."""
import base64
import email
import email.header
import email.policy
import re

# Known to the world under a name that Python's codecs spell otherwise.
CODECS = {"windows-874": "cp874"}


class Missing(Exception):
    """The witness is not installed."""


def decoded(charset, content):
    return content.decode(CODECS.get(charset.lower(), charset))


def leaf(media_type, name, file_name, disposition, content, charset):
    node = {
        "type": media_type,
        "name": name or "",
        "file": file_name or "",
        "disposition": disposition or "",
        "bytes": base64.b64encode(content).decode(),
    }
    # A calendar that names no charset is read as bytes.
    if media_type.startswith("text/") and media_type != "text/calendar":
        node["text"] = decoded(charset or "us-ascii", content)
    return node


def email_words(value):
    """Reads encoded words inside quotes too, which is where file names are written, and drops the
    folds between them."""
    return str(email.header.make_header(email.header.decode_header(value or "")))


def read_with_email(path):
    def node(part):
        if part.is_multipart():
            return {
                "type": part.get_content_type(),
                "parts": [node(child) for child in part.get_payload()],
            }
        return leaf(
            part.get_content_type(),
            email_words(part.get_param("name")),
            email_words(part.get_param("filename", header="content-disposition")),
            part.get_content_disposition(),
            part.get_payload(decode=True),
            part.get_content_charset(),
        )

    with open(path, "rb") as file:
        message = email.message_from_bytes(file.read(), policy=email.policy.compat32)
    return {
        "subject": email_words(message["subject"]),
        "from": email_words(message["from"]),
        "to": email_words(message["to"]),
        "root": node(message),
    }


def gmime():
    """GMime's module, or Missing."""
    try:
        import gi

        gi.require_version("GMime", "3.0")
        from gi.repository import GMime
    except (ImportError, ValueError) as error:
        raise Missing(f"GMime for Python is not installed ({error})") from error
    GMime.init()
    return GMime


def gmime_words(value):
    """One word at a time: GMime joins the payloads of adjacent words before it decodes them, and stops
    at the padding of the first."""
    folds = re.sub(r"\?=\s+=\?", "?==?", value)
    return re.sub(
        r"=\?.*?\?.\?.*?\?=",
        lambda word: gmime().utils_header_decode_text(None, word.group(0)),
        folds,
    )


def read_with_gmime(path):
    GMime = gmime()

    def node(part):
        media_type = part.get_content_type().get_mime_type()
        if isinstance(part, GMime.Multipart):
            children = [part.get_part(i) for i in range(part.get_count())]
            return {"type": media_type, "parts": [node(child) for child in children]}
        if isinstance(part, GMime.MessagePart):
            return {"type": media_type, "parts": [node(part.get_message().get_mime_part())]}
        content = GMime.StreamMem.new()
        part.get_content().write_to_stream(content)
        disposition = part.get_content_disposition()
        return leaf(
            media_type,
            part.get_content_type().get_parameter("name"),
            disposition and disposition.get_parameter("filename"),
            disposition and disposition.get_disposition(),
            bytes(content.get_byte_array()),
            part.get_content_type().get_parameter("charset"),
        )

    with open(path, "rb") as file:
        stream = GMime.StreamMem.new_with_buffer(file.read())
    message = GMime.Parser.new_with_stream(stream).construct_message(None)
    return {
        "subject": gmime_words(message.get_header_list().get_header("Subject").get_raw_value()),
        "from": message.get_from().to_string(None, False),
        "to": message.get_to().to_string(None, False),
        "root": node(message.get_mime_part()),
    }


def people_and_names_by_gmime(raw):
    """From, To and Cc as [name, address], None where there is none, and [type, name] of each part."""
    try:
        import gi

        gi.require_version("GMime", "3.0")
        from gi.repository import GMime
    except (ImportError, ValueError) as error:
        raise Missing(f"GMime for Python is not installed ({error})") from error
    GMime.init()

    def people(addresses):
        for i in range(addresses.length()):
            address = addresses.get_address(i)
            if isinstance(address, GMime.InternetAddressGroup):
                yield from people(address.get_members())
            else:
                yield [address.get_name() or "", address.get_addr() or ""]

    def parts(part):
        if part is None:
            return
        name = ""
        if isinstance(part, GMime.Part):
            name = part.get_filename() or ""
        yield [part.get_content_type().get_mime_type().lower(), name]
        if isinstance(part, GMime.Multipart):
            for i in range(part.get_count()):
                yield from parts(part.get_part(i))
        elif isinstance(part, GMime.MessagePart) and part.get_message() is not None:
            yield from parts(part.get_message().get_mime_part())

    message = GMime.Parser.new_with_stream(GMime.StreamMem.new_with_buffer(raw)).construct_message(None)
    if message is None:
        raise ValueError("no message")
    found = {"parts": list(parts(message.get_mime_part()))}
    for field, addresses in (("from", message.get_from()), ("to", message.get_to()),
                             ("cc", message.get_cc())):
        found[field] = list(people(addresses)) if addresses.length() else None
    return found


READERS = {"email": read_with_email, "gmime": read_with_gmime}
