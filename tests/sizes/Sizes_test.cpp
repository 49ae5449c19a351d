// SPDX-License-Identifier: MIT
// Every operation that takes a size or a text, around the sizes that an int can hold: what would
// become too long is refused, with the neutral result, before anything is built.
//
// Sizes at which an operation would succeed are left out: it would copy gigabytes.
#include "tests/sizes/HugeTexts.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Cal.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <functional>
#include <limits>

namespace sizes_test {

namespace {

constexpr qint64 kTwoGigabytes = qint64(1) << 31;
constexpr qint64 kLongest = QCString::longestLength;
constexpr qint64 kLongestInt = std::numeric_limits<int>::max();

const qint64 kSizes[] = {kTwoGigabytes - 65, kTwoGigabytes - 64, kTwoGigabytes - 2,
                         kTwoGigabytes - 1,  kTwoGigabytes,      2 * kTwoGigabytes + 5};

HugeTexts& huge()
{
    static HugeTexts texts;
    return texts;
}

// Of the longest size; its bytes are never touched.
QCString longestText()
{
    return QCString::fromBytes(QByteArray(static_cast<int>(kLongest), Qt::Uninitialized));
}

using Check = std::function<bool(qint64 size)>;

struct SizeRow
{
    const char* name;
    // The sizes that are refused.
    qint64 first;
    qint64 last;
    Check isNeutral;
};

void PrintTo(const SizeRow& row, std::ostream* out)
{
    *out << row.name;
}

class Sizes : public testing::TestWithParam<SizeRow>
{
};

constexpr qint64 kNever = std::numeric_limits<qint64>::max();

// From the first size that no text may have.
SizeRow tooLong(const char* name, Check check)
{
    return {name, kLongest + 1, kNever, std::move(check)};
}
// Sizes of which the result is longer.
SizeRow tooLongWhenDone(const char* name, Check check)
{
    return {name, 0, kNever, std::move(check)};
}
SizeRow ofInt(const char* name, Check check)
{
    return {name, 0, kLongestInt, std::move(check)};
}

std::vector<SizeRow> codecRows()
{
    static QFile closed(QStringLiteral("/nowhere/at/all"));
    const auto length = [](qint64 size) { return static_cast<unsigned long>(size); };
    const auto intOf = [](qint64 size) { return static_cast<int>(size); };
    std::vector<SizeRow> rows;
    for (const int breakLines : {0, 1}) {
        rows.push_back(tooLongWhenDone("encB64", [=](qint64 size) {
            return EMAIL_Util::encB64(huge().zeros(), length(size), breakLines).isEmpty();
        }));
        rows.push_back(tooLongWhenDone("encQp", [=](qint64 size) {
            return size <= kLongest ||
                   EMAIL_Util::encQp(huge().zeros(), length(size), breakLines).isEmpty();
        }));
        rows.push_back(tooLongWhenDone("encB64 to a file that takes nothing", [=](qint64 size) {
            return EMAIL_Util::encB64(huge().zeros(), length(size), &closed, breakLines) == -1;
        }));
        rows.push_back(tooLongWhenDone("encQp to a file that takes nothing", [=](qint64 size) {
            return EMAIL_Util::encQp(huge().zeros(), length(size), &closed, breakLines) == -1;
        }));
    }
    rows.push_back(tooLong("encQp_Cal", [=](qint64 size) {
        return encQp_Cal(huge().zeros(), length(size), 1).isEmpty();
    }));
    rows.push_back({"decB64", 2 * kTwoGigabytes, kNever, [=](qint64 size) {
                        unsigned long decoded = 7;
                        const char* text = huge().lettersUpToNul(length(size));
                        return EMAIL_Util::decB64(text, &decoded).isEmpty() && decoded == 7;
                    }});
    rows.push_back(tooLong("decQp", [=](qint64 size) {
        unsigned long decoded = 7;
        const char* text = huge().lettersUpToNul(length(size));
        return EMAIL_Util::decQp(text, &decoded).isEmpty() && decoded == 7;
    }));
    for (const int cte : {CTE_7BIT, CTE_QUOTED_PRINTABLE, CTE_BASE64}) {
        rows.push_back(ofInt("encWithCTE to a file that takes nothing", [=](qint64 size) {
            return EMAIL_Util::encWithCTE(huge().zeros(), intOf(size), &closed, cte) == -1;
        }));
        rows.push_back(ofInt("decFromCTE to a file that takes nothing", [=](qint64 size) {
            return EMAIL_Util::decFromCTE(huge().letters(), intOf(size), &closed, cte) == -1;
        }));
    }
    rows.push_back(ofInt("decB64 to a file that takes nothing", [=](qint64 size) {
        return EMAIL_Util::decB64(huge().letters(), intOf(size), &closed) == -1;
    }));
    rows.push_back(ofInt("decQp to a file that takes nothing", [=](qint64 size) {
        return EMAIL_Util::decQp(huge().letters(), intOf(size), &closed) == -1;
    }));
    rows.push_back(ofInt("writeRawData", [=](qint64 size) {
        return EMAIL_Util::writeRawData(huge().zeros(), intOf(size), &closed) == -1;
    }));
    rows.push_back(ofInt("writeFile", [=](qint64 size) {
        char block[4] = {};
        int used = intOf(size);
        return EMAIL_Util::writeFile(&closed, block, used, used) == -1 && used == intOf(size);
    }));
    rows.push_back(ofInt("guessRightCTE", [=](qint64 size) {
        return EMAIL_Util::guessRightCTE(huge().zeros(), intOf(size)) == CTE_BASE64;
    }));
    rows.push_back({"UTF7ToUCS2", kLongest + 1, 2 * kTwoGigabytes - 1, [=](qint64 size) {
                        QString text(QStringLiteral("old"));
                        const auto used = static_cast<unsigned int>(size);
                        return !EMAIL_Util::UTF7ToUCS2(huge().letters(), used, text) &&
                               text.isEmpty();
                    }});
    return rows;
}

std::vector<SizeRow> textRows()
{
    const auto endless = [](qint64 size) {
        return huge().lettersUpToNul(static_cast<std::size_t>(size));
    };
    return {
        tooLong("text up to its NUL",
                [=](qint64 size) { return QCString(endless(size)).isNull(); }),
        // Which is no text any more where one is made of it.
        {"text beside another", kTwoGigabytes, kTwoGigabytes,
         [=](qint64 size) {
             const char* text = endless(size);
             const QCString letters("aaa");
             return letters < text && !(letters == text) && letters + text == letters &&
                    text + letters == letters;
         }},
        tooLong("reply to a message",
                [=](qint64 size) {
                    return EMAIL_BasicMsg::newMessage(endless(size), QStringLiteral("b"),
                                                      CHARSET_UTF_8)
                        .isNull();
                }),
        {"text of a length", kLongest + 1, kLongestInt,
         [](qint64 size) { return QCString(huge().letters(), static_cast<int>(size)).isNull(); }},
        ofInt("the middle of a short text",
              [](qint64 size) {
                  const auto count = static_cast<int>(size);
                  const QCString text("abc");
                  return text.mid(1, count) == "bc" && text.left(count) == "abc" &&
                         text.right(count) == "abc" && text.mid(count).isEmpty() &&
                         text.mid(-count, 2).isEmpty() && text.at(count) == '\0' &&
                         text.find('c', count) == -1 && text.findRev('c', count) == 2 &&
                         text.find('c', -count) == 2 && text.findRev('c', -count) == -1;
              }),
    };
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

// What the classes take as a text of bytes is null then.
QCString textOf(qint64 size)
{
    return QCString::fromBytes(huge().bytes(size));
}

std::vector<SizeRow> textArrayRows()
{
    return {
        tooLong("all bytes of an array", [](qint64 size) { return textOf(size).isNull(); }),
        tooLong("an array's bytes up to a NUL",
                [](qint64 size) { return QCString(huge().bytes(size)).isNull(); }),
        tooLongWhenDone("array and text",
                        [](qint64 size) { return (huge().bytes(size) + QCString("a")).isEmpty(); }),
        tooLong("split at the first",
                [](qint64 size) {
                    QCString left("l");
                    QCString right("r");
                    EMAIL_Util::split(":", textOf(size), left, right, true);
                    return left == "l" && right == "r";
                }),
        tooLong("split at every",
                [](qint64 size) { return EMAIL_Util::split(":", textOf(size), true).isEmpty(); }),
        tooLong("stripChar",
                [](qint64 size) {
                    QCString out("old");
                    EMAIL_Util::stripChar('"', textOf(size), out);
                    return out == "old";
                }),
        tooLong("names",
                [](qint64 size) {
                    const QCString name = textOf(size);
                    return EMAIL_Util::cteStrToEnum(name) == 0 &&
                           EMAIL_Util::charsetStrToEnum(name) == 0 &&
                           EMAIL_Util::typeStrToEnum(name) == 0 &&
                           EMAIL_Util::subTypeStrToEnum(name) == 0;
                }),
        tooLong("message",
                [](qint64 size) {
                    EMAIL_Message message(textOf(size), nullptr);
                    message.parse();
                    return message.mHeader->mFields.count() == 0 && message.assemble(nullptr) == 0;
                }),
    };
}

std::vector<SizeRow> arrayRows()
{
    std::vector<SizeRow> rows;
    for (const int cte : {CTE_QUOTED_PRINTABLE, CTE_BASE64, CTE_8BIT}) {
        rows.push_back(tooLong("encWithCTE", [=](qint64 size) {
            QByteArray out("old");
            EMAIL_Util::encWithCTE(huge().bytes(size), out, cte);
            return out.isEmpty();
        }));
        rows.push_back(tooLong("decFromCTE", [=](qint64 size) {
            QByteArray out("old");
            EMAIL_Util::decFromCTE(textOf(size), out, cte);
            return out.isEmpty();
        }));
    }
    rows.push_back(tooLongWhenDone("guessRightCTE of an array", [](qint64 size) {
        return EMAIL_Util::guessRightCTE(huge().bytes(size)) == CTE_BASE64;
    }));
    for (int charset = CHARSET_UNKNOWN; charset <= CHARSET_ISO_8859_15; ++charset) {
        rows.push_back(tooLong("decFromCharset", [=](qint64 size) {
            QString out(QStringLiteral("old"));
            EMAIL_Util::decFromCharset(huge().bytes(size), out, charset);
            return out.isEmpty();
        }));
        rows.push_back(tooLong("encWithCharset", [=](qint64 size) {
            QCString out("old");
            EMAIL_Util::encWithCharset(out, huge().units(size), charset);
            return charset == CHARSET_UTF_7 ? out == "old" : out.isEmpty();
        }));
        rows.push_back(tooLong("canEncodeByCharset", [=](qint64 size) {
            return EMAIL_Util::canEncodeByCharset(huge().units(size), charset) ==
                   (charset == CHARSET_UTF_8);
        }));
    }
    rows.push_back(tooLong("the calendar's charsets", [](qint64 size) {
        QString text(QStringLiteral("old"));
        decFromCharset_Cal(huge().bytes(size), text, CHARSET_UTF_8);
        QCString bytes("old");
        encWithCharset_Cal(bytes, huge().units(size), CHARSET_UTF_8);
        return text.isEmpty() && bytes.isEmpty();
    }));
    return rows;
}

std::vector<SizeRow> wordRows()
{
    std::vector<SizeRow> rows;
    rows.push_back(tooLongWhenDone("isNeedEncode2047", [](qint64 size) {
        return EMAIL_Util::isNeedEncode2047(huge().units(size));
    }));
    for (const int charset : {CHARSET_UTF_8, CHARSET_ISO_8859_1, CHARSET_GBK}) {
        rows.push_back(tooLong("encode_2047_String", [=](qint64 size) {
            QCString out("old");
            EMAIL_Util::encode_2047_String(huge().units(size), charset, out);
            return out.isEmpty();
        }));
        rows.push_back(tooLong("encode_2047_Address", [=](qint64 size) {
            QCString out("old");
            EMAIL_Util::encode_2047_Address(huge().units(size), charset, out);
            return out.isEmpty();
        }));
        for (const int form : {CTE_BASE64, CTE_QUOTED_PRINTABLE}) {
            rows.push_back(tooLong("encode_2047_String_Aux", [=](qint64 size) {
                QCString out("old");
                EMAIL_Util::encode_2047_String_Aux(huge().units(size), charset, form, out);
                return out.isEmpty();
            }));
        }
    }
    rows.push_back(tooLong("decode_2047_String of no text", [](qint64 size) {
        QString out(QStringLiteral("old"));
        EMAIL_Util::decode_2047_String(textOf(size), out, CHARSET_UTF_8);
        EMAIL_Util::decode_2047_String_Aux(textOf(size), out, CHARSET_UTF_8);
        return out == QStringLiteral("old");
    }));
    rows.push_back(tooLongWhenDone("decode_2047_String behind a text", [](qint64 size) {
        QString out = huge().units(size);
        EMAIL_Util::decode_2047_String("=?utf-8?B?YQ==?=", out, CHARSET_UTF_8);
        return out.isEmpty();
    }));
    rows.push_back({"getSubtypeByExtion", kLongest + 1, kLongest + 1, [](qint64 size) {
                        int type = 7;
                        const QString name = huge().units(size);
                        return EMAIL_Util::getSubtypeByExtion(name, type) == 0 && type == 7;
                    }});
    return rows;
}

using TextSetter = void (EMAIL_BasicMsg::*)(const QString&);

// Whether no message that takes the part can be assembled.
bool isRefused(const EMAIL_MultiPart& part)
{
    EMAIL_MIME message;
    message.setType(TYPE_MULTIPART);
    message.addMultiPart(part, 0);
    return message.mMessage->assemble(nullptr) == -1;
}

std::vector<SizeRow> messageRows()
{
    std::vector<SizeRow> rows;
    const std::pair<const char*, TextSetter> setters[] = {
        {"setFrom", &EMAIL_BasicMsg::setFrom},
        {"setTo", &EMAIL_BasicMsg::setTo},
        {"setCc", &EMAIL_BasicMsg::setCc},
        {"setBcc", &EMAIL_BasicMsg::setBcc},
        {"setReplyTo", &EMAIL_BasicMsg::setReplyTo},
        {"setSender", &EMAIL_BasicMsg::setSender},
        {"setSubject", &EMAIL_BasicMsg::setSubject},
        {"setXMailer", &EMAIL_BasicMsg::setXMailer},
        {"setMimeVersion", &EMAIL_BasicMsg::setMimeVersion},
        {"setTypeStr", &EMAIL_BasicMsg::setTypeStr},
        {"setSubTypeStr", &EMAIL_BasicMsg::setSubTypeStr},
        {"setMethod", &EMAIL_BasicMsg::setMethod},
        {"addReceiptRequest", &EMAIL_BasicMsg::addReceiptRequest},
    };
    for (const auto& [name, setter] : setters) {
        rows.push_back(tooLong(name, [setter = setter](qint64 size) {
            EMAIL_BasicMsg message;
            (message.*setter)(huge().units(size));
            return message.assemble().length() < 200;
        }));
    }
    for (const bool encode : {false, true}) {
        rows.push_back(tooLong("text of a message's body", [=](qint64 size) {
            EMAIL_BasicMsg message;
            message.setBody(huge().units(size), encode);
            return message.mMessage->assemble(nullptr) == -1;
        }));
        rows.push_back(tooLong("text of a part's body", [=](qint64 size) {
            EMAIL_MultiPart part(nullptr);
            part.setBody(QByteArray("old"), true);
            part.setBody(huge().units(size), encode);
            return part.mBodyData.isEmpty() && isRefused(part);
        }));
        rows.push_back(tooLong("bytes of a part's body", [=](qint64 size) {
            EMAIL_MultiPart part(nullptr);
            part.setBody(QByteArray("old"), true);
            part.setBody(huge().bytes(size), encode);
            return part.mBodyData.isEmpty() && isRefused(part);
        }));
    }
    rows.push_back(tooLong("bytes put into a part", [](qint64 size) {
        EMAIL_MultiPart part(nullptr);
        part.mBodyData = huge().bytes(size);
        return isRefused(part);
    }));
    rows.push_back(tooLongWhenDone("bytes of a message's body", [](qint64 size) {
        EMAIL_BasicMsg message;
        message.setBody(huge().bytes(size));
        return message.mMessage->assemble(nullptr) == -1;
    }));
    rows.push_back({"part whose encoding is too long", 0, kLongest, [](qint64 size) {
                        EMAIL_MultiPart part(nullptr);
                        part.setBody(huge().bytes(size), false);
                        return isRefused(part);
                    }});
    return rows;
}
#endif

} // namespace

TEST_P(Sizes, AreRefusedWithTheNeutralResult)
{
    if (!huge().areMapped())
        GTEST_SKIP() << "no address space";
    for (const qint64 size : kSizes) {
        if (size >= GetParam().first && size <= GetParam().last) {
            EXPECT_TRUE(GetParam().isNeutral(size)) << size;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Codecs, Sizes, testing::ValuesIn(codecRows()));
INSTANTIATE_TEST_SUITE_P(Texts, Sizes, testing::ValuesIn(textRows()));
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
// The containers of Qt 5 hold no such sizes.
INSTANTIATE_TEST_SUITE_P(TextArrays, Sizes, testing::ValuesIn(textArrayRows()));
INSTANTIATE_TEST_SUITE_P(Arrays, Sizes, testing::ValuesIn(arrayRows()));
INSTANTIATE_TEST_SUITE_P(Words, Sizes, testing::ValuesIn(wordRows()));
INSTANTIATE_TEST_SUITE_P(Messages, Sizes, testing::ValuesIn(messageRows()));

// 2,160,000,000 bytes of UTF-8 and more in a text of half as many characters.
TEST(Sizes, OfTheWrittenCharactersCount)
{
    if (!huge().areMapped())
        GTEST_SKIP() << "no address space";
    const QString text = huge().letterUnits(qsizetype(1080000000));
    QCString words("old");
    EMAIL_Util::encode_2047_String(text, CHARSET_UTF_8, words);
    EXPECT_TRUE(words.isEmpty());
    QCString bytes("old");
    EMAIL_Util::encWithCharset(bytes, text, CHARSET_UTF_8);
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_FALSE(EMAIL_Util::canEncodeByCharset(text, CHARSET_GBK))
        << "what a codec can reckon with";
}
#endif

namespace {

struct LongestRow
{
    const char* name;
    std::function<void(EMAIL_Header&, const QCString&)> set;
};

void PrintTo(const LongestRow& row, std::ostream* out)
{
    *out << row.name;
}

class LongestValue : public testing::TestWithParam<LongestRow>
{
};

void addMailboxes(EMAIL_Header& header, const QCString& text)
{
    header.setTo("a");
    for (int i = 0; i < 2; ++i) {
        auto* mailbox = new EMAIL_Address;
        mailbox->mAddresses.append(text);
        header.getTo()->mAddrList.append(mailbox);
    }
}

void addGroup(EMAIL_Header& header, const QCString& text)
{
    header.setTo("team: a, b");
    header.getTo()->mAddrList.at(0)->mGroupName = text;
}

} // namespace

TEST_P(LongestValue, FailsTheAssembly)
{
    EMAIL_Message message(QCString("Subject: s\r\n\r\nbody"), nullptr);
    message.parse();
    GetParam().set(*message.mHeader, longestText());
    EXPECT_EQ(message.assemble(nullptr), -1);
    QFile closed;
    EXPECT_EQ(message.assemble(&closed), -1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LongestValue,
    testing::Values(
        LongestRow{"plain field",
                   [](EMAIL_Header& header, const QCString& text) { header.setSubject(text); }},
        LongestRow{"mailboxes", addMailboxes}, LongestRow{"group", addGroup},
        LongestRow{"parameter", [](EMAIL_Header& header,
                                   const QCString& text) { header.contentType()->setName(text); }},
        LongestRow{"boundary",
                   [](EMAIL_Header& header, const QCString& text) {
                       header.contentType()->setTypeStr("multipart");
                       header.contentType()->setBoundary(text);
                   }},
        LongestRow{"file name", [](EMAIL_Header& header, const QCString& text) {
                       header.contentDisposition()->setFileName(text);
                   }}));

namespace {

// Its line is the body as it is, which is not copied.
struct VerbatimField : EMAIL_Field
{
    VerbatimField(const QCString& name, const QCString& body)
    {
        mName = name;
        mBody = body;
    }
    void assemble() override { mString = mBody; }
};

} // namespace

TEST(LongestText, OfALineLeavesNothingOfSmartDataThatPassesIt)
{
    for (const char* name : {"From", "Cc", "Subject"}) {
        EMAIL_Header header(QCString("Cc: c@x\r\nSubject: s\r\n"), nullptr);
        header.parse();
        header.addField(new VerbatimField(name, longestText()));
        EXPECT_EQ(header.getSmartData().length(), 0) << name;
    }
}

TEST(LongestText, BecomesEmptyWhenItGrows)
{
    EXPECT_EQ(longestText().length(), kLongest);
    EXPECT_EQ(longestText().size(), kLongest + 1);
    EXPECT_TRUE(longestText().append("a").isEmpty());
    EXPECT_TRUE(longestText().append('a').isEmpty());
    EXPECT_TRUE(longestText().prepend("a").isEmpty());
    EXPECT_TRUE((longestText() + "a").isEmpty());
    EXPECT_TRUE(("a" + longestText()).isEmpty());
    EXPECT_TRUE((longestText() += longestText()).isEmpty());
}

} // namespace sizes_test
