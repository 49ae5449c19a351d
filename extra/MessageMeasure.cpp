// SPDX-License-Identifier: MIT
#include "extra/MessageMeasure.h"

#include "extra/BoundaryTrie.h"
#include "extra/PartHeader.h"
#include "types/Ascii.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Util.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tarvomime {

namespace {

// Walks over the lines of a message and keeps account of what is open.
class Measuring
{
public:
    explicit Measuring(std::string_view bytes) : mBytes(bytes) {}

    MessageMeasure run()
    {
        enterEntity(0);
        std::size_t at = 0;
        while (at < mBytes.size()) {
            const std::size_t end = std::min(mBytes.find('\n', at), mBytes.size());
            visitLine(at, end);
            at = end + 1;
        }
        if (mPlace == Place::Header)
            leaveHeader(mBytes.size());
        leaveBody();
        return mMeasure;
    }

private:
    // What the next line belongs to.
    enum class Place {
        // Empty lines in front of a header: where parsing does not skip them, there is less to
        // count.
        BeforeHeader,
        Header,
        Body,
        // Text of a container in front of its first part or behind its last.
        Between
    };

    void visitLine(std::size_t at, std::size_t end)
    {
        std::string_view line = mBytes.substr(at, end - at);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        mMeasure.longestLine = std::max(mMeasure.longestLine, qint64(line.size()));
        if (line.substr(0, 2) == "--" && visitDelimiter(line.substr(2), at))
            return;
        switch (mPlace) {
        case Place::BeforeHeader:
            if (line.empty())
                return;
            mPlace = Place::Header;
            mHeaderStart = at;
            [[fallthrough]];
        case Place::Header:
            visitHeaderLine(line, at, end);
            return;
        case Place::Body:
            countBody(line);
            return;
        case Place::Between:
            return;
        }
    }

    bool visitDelimiter(std::string_view text, std::size_t at)
    {
        std::size_t length = 0;
        const int container = mContainers.find(text, length);
        if (container < 0)
            return false;
        if (mPlace == Place::Header)
            leaveHeader(at);
        leaveBody();
        const bool closes = text.substr(length, 2) == "--";
        mContainers.closeTo(container + (closes ? 0 : 1));
        mLevels.resize(std::size_t(mContainers.count()));
        if (closes)
            mPlace = Place::Between;
        else
            enterEntity(mLevels.back() + 1);
        return true;
    }

    void enterEntity(int level)
    {
        mLevel = level;
        ++mMeasure.parts;
        mMeasure.depth = std::max(mMeasure.depth, level);
        mType.clear();
        mField = Field::Other;
        mCte = CTE_7BIT;
        mPlace = Place::BeforeHeader;
    }

    void visitHeaderLine(std::string_view line, std::size_t at, std::size_t end)
    {
        if (line.empty()) {
            leaveHeader(at);
            mHeaderStart = end + 1;
            return;
        }
        // A blank in front of the first line folds nothing.
        const bool continues = isBlank(line.front()) && mHeaderStart != at;
        const bool isField = line.find(':') != line.npos;
        if (!continues && !isField && mHeaderStart != at) {
            leaveHeader(at);
            // The line may be the first delimiter of the container whose header it ends.
            const bool delimits = line.substr(0, 2) == "--" && visitDelimiter(line.substr(2), at);
            if (!delimits && mPlace == Place::Body)
                countBody(line);
            return;
        }
        if (!continues)
            beginField(line);
        if (mField == Field::Type)
            mType.append(line.data(), int(line.size())).append('\n');
        else if (mField == Field::Encoding)
            mCte =
                std::max(mCte, EMAIL_Util::cteStrToEnum(QCString(line.data(), int(line.size()))));
    }

    void beginField(std::string_view line)
    {
        ++mMeasure.fields;
        const std::string_view name = trimmed(line.substr(0, line.find(':')));
        // The first Content-Type counts.
        if (mType.isEmpty() && equalIgnoringCase(name, "content-type"))
            mField = Field::Type;
        else if (equalIgnoringCase(name, "content-transfer-encoding"))
            mField = Field::Encoding;
        else
            mField = Field::Other;
    }

    void leaveHeader(std::size_t at)
    {
        mMeasure.largestHeader = std::max(mMeasure.largestHeader, qint64(at - mHeaderStart));
        mPlace = Place::Body;
        mStored = 0;
        EMAIL_ContentType type;
        type.mBody = QCString(mType.mid(mType.indexOf(':') + 1).trimmed());
        type.parse();
        const QByteArray name =
            QByteArray(type.mType).toLower() + '/' + QByteArray(type.mSubType).toLower();
        if (!mType.isEmpty() && isContainerType(name)) {
            // A boundary that is folded spreads its delimiters over lines: its first one counts.
            const std::string_view boundary = type.mBoundary.view();
            mContainers.push(boundary.substr(0, boundary.find_first_of("\r\n")));
            mLevels.push_back(mLevel);
            mPlace = Place::Between;
        } else if (!mType.isEmpty() && type.mTypeEnum == TYPE_MESSAGE &&
                   mCte < CTE_QUOTED_PRINTABLE) {
            enterEntity(mLevel + 1);
        }
    }

    void countBody(std::string_view line) { mStored += qint64(line.size()) + 2; }

    void leaveBody()
    {
        // Line ends are counted, which base64 does not decode: never too little.
        mMeasure.decodedSize += mCte == CTE_BASE64 ? mStored / 4 * 3 + 3 : mStored;
        mStored = 0;
    }

    enum class Field { Other, Type, Encoding };

    std::string_view mBytes;
    MessageMeasure mMeasure;
    BoundaryTrie mContainers;
    // The level of each open container.
    std::vector<int> mLevels;
    Place mPlace = Place::BeforeHeader;
    int mLevel = 0;
    std::size_t mHeaderStart = 0;
    QByteArray mType;
    Field mField = Field::Other;
    int mCte = CTE_7BIT;
    qint64 mStored = 0;
};

} // namespace

MessageMeasure measureMessage(const QByteArray& bytes)
{
    return Measuring({bytes.constData(), static_cast<std::size_t>(bytes.size())}).run();
}

} // namespace tarvomime
