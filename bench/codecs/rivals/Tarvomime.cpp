// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"
#include "utility/EMAIL_Util.h"

#include <vector>

namespace bench {

namespace {

constexpr const char* kName = "tarvomime";

std::size_t size(const QByteArray& result)
{
    return static_cast<std::size_t>(result.size());
}

std::size_t encodeBase64(const std::string& in)
{
    return size(EMAIL_Util::encB64(in.data(), in.size(), 1));
}

std::size_t encodeBase64Unbroken(const std::string& in)
{
    return size(EMAIL_Util::encB64(in.data(), in.size(), 0));
}

std::size_t decodeBase64(const std::string& in)
{
    unsigned long length = 0;
    return size(EMAIL_Util::decB64(in.c_str(), &length));
}

std::size_t encodeQp(const std::string& in)
{
    return size(EMAIL_Util::encQp(in.data(), in.size(), 1));
}

std::size_t decodeQp(const std::string& in)
{
    unsigned long length = 0;
    return size(EMAIL_Util::decQp(in.c_str(), &length));
}

// The body of a parsed message: a slice, whose length is known.
template <int encoding>
std::size_t decodeBody(const std::string& in)
{
    static const std::string* source = nullptr;
    static QCString body;
    if (source != &in) {
        source = &in;
        body = QCString::fromBytes(QByteArray::fromStdString(in));
    }
    QByteArray out;
    EMAIL_Util::decFromCTE(body, out, encoding);
    return size(out);
}

// Room that a caller keeps, so that no page is new: the codec alone.
char* keptRoom(qint64 size)
{
    static std::vector<char> room;
    if (room.size() < static_cast<std::size_t>(size))
        room.resize(static_cast<std::size_t>(size));
    return room.data();
}

std::size_t encodeQpToRoom(const std::string& in)
{
    const qint64 room = EMAIL_Util::encQpRoom(in.size(), 1);
    return static_cast<std::size_t>(EMAIL_Util::encQpTo(in.data(), in.size(), 1, keptRoom(room),
                                                        static_cast<unsigned long>(room)));
}

std::size_t decodeQpToRoom(const std::string& in)
{
    const qint64 room = EMAIL_Util::decQpRoom(in.size());
    return static_cast<std::size_t>(EMAIL_Util::decQpTo(in.data(), in.size(), keptRoom(room),
                                                        static_cast<unsigned long>(room)));
}

constexpr const char* kBodyName = "tarvomime-body";
constexpr const char* kRoomName = "tarvomime-room";

const bool addedBodies = addWork(kBodyName, Job::DecodeBase64, decodeBody<CTE_BASE64>) &&
                         addWork(kBodyName, Job::DecodeBase64Unbroken, decodeBody<CTE_BASE64>) &&
                         addWork(kBodyName, Job::DecodeQp, decodeBody<CTE_QUOTED_PRINTABLE>);

const bool addedRooms = addWork(kRoomName, Job::EncodeQp, encodeQpToRoom) &&
                        addWork(kRoomName, Job::DecodeQp, decodeQpToRoom);

const bool added = addWork(kName, Job::EncodeBase64, encodeBase64) &&
                   addWork(kName, Job::EncodeBase64Unbroken, encodeBase64Unbroken) &&
                   addWork(kName, Job::DecodeBase64, decodeBase64) &&
                   addWork(kName, Job::DecodeBase64Unbroken, decodeBase64) &&
                   addWork(kName, Job::DecodeBase64ShortFirst, decodeBase64) &&
                   addWork(kName, Job::DecodeBase64Ragged, decodeBase64) &&
                   addWork(kName, Job::EncodeQp, encodeQp) &&
                   addWork(kName, Job::DecodeQp, decodeQp);

} // namespace

} // namespace bench
