// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The messages that the benchmarks work on. All of it is made here, the same in every run; lines
/// end in CR LF but where a job is about other lines.
namespace bench {

/// About 3 KB of English text below the fields that a delivered message carries.
std::string textMail();
/// A Russian text and an HTML part, both quoted-printable, `size` bytes in all.
std::string alternativeMail(std::size_t size);
/// A short text and `count` base64 attachments, each with `size` encoded bytes.
std::string attachmentMail(int count, std::size_t size);
/// The parts of such a message around the encoded bytes of its only attachment, for files too large
/// to be held.
std::string attachmentHead();
std::string attachmentTail();
/// One line of base64 with its CR LF, the same for each line of an attachment.
std::string attachmentLine();
/// multipart/digest of `count` messages with 400 to 800 bytes of text each.
std::string digest(int count);
/// multipart/mixed inside multipart/mixed, with a leaf of 500 bytes on each of `levels` levels.
std::string levels(int levels);
/// `count` header lines, Received and X-Header-n by turns.
std::string headerLines(int count);
/// `levels` multiparts one inside the other, with one leaf at the bottom.
std::string nest(int levels);
/// `count` parts of one field and one line.
std::string partFlood(int count);
/// `size` bytes of lines that begin like the delimiter and go on otherwise.
std::string almostMatches(std::size_t size);
/// One header line of `size` bytes.
std::string longLine(std::size_t size);

/// `count` messages as a mailbox holds them: four of ten like `textMail`, three like
/// `alternativeMail` (10 to 40 KB), three with one to three attachments of 5 to 100 KB.
std::vector<std::string> mailbox(int count);

} // namespace bench
