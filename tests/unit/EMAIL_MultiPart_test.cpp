// SPDX-License-Identifier: MIT
#include "utility/EMAIL_MultiPart.h"

#include <type_traits>

namespace email_multi_part_test {

namespace {

// Parts whose destructor counts: who owns what shows when it dies.
class CountedPart : public EMAIL_MultiPart
{
public:
    explicit CountedPart(int* deleted) : EMAIL_MultiPart(nullptr), mDeleted(deleted) {}
    ~CountedPart() override { ++*mDeleted; }

private:
    int* mDeleted;
};

EMAIL_MultiPart* named(const char* name)
{
    auto* part = new EMAIL_MultiPart(nullptr);
    part->setName(QString::fromLatin1(name));
    return part;
}

QString namesIn(const EMAIL_MultiPart& part)
{
    QString names;
    for (int i = 0; i < part.getSubMultiPartCount(); ++i)
        names += part.getSubMultiPart(i)->getName();
    return names;
}

void fillMembers(EMAIL_MultiPart& part)
{
    part.setTypeStr(QStringLiteral("X-Type"));
    part.setType(TYPE_IMAGE);
    part.setSubType(3);
    part.setCTE(CTE_8BIT);
    part.setCharset(CHARSET_KOI8_U);
    part.setName(QStringLiteral("name"));
    part.setDispFileName(QStringLiteral("file"));
    part.setDispType(1);
    part.setDescription(QStringLiteral("description"));
    part.setLocation(QStringLiteral("location"));
    part.setID(QStringLiteral("<id>"));
    part.setBody(QByteArray("body"), true);
    part.setMethod(QStringLiteral("REQUEST"));
    part.setASAttName(QStringLiteral("announced"));
    part.setAttSize(77);
    part.setNoAttDownloaded();
    part.setPartID(QStringLiteral("1.2"));
    part.setBoundary(QStringLiteral("bound"));
    part.setBodyInfo(QStringLiteral("/a/file"), 3, 4, true);
}

void expectFilled(const EMAIL_MultiPart& part)
{
    EXPECT_EQ(part.getTypeStr(), QStringLiteral("image"));
    EXPECT_EQ(part.getType(), TYPE_IMAGE);
    EXPECT_EQ(part.getSubTypeStr(), QStringLiteral("html"));
    EXPECT_EQ(part.getSubType(), 3);
    EXPECT_EQ(part.getCTE(), CTE_8BIT);
    EXPECT_EQ(part.getCharset(), CHARSET_KOI8_U);
    EXPECT_EQ(part.getName(), QStringLiteral("name"));
    EXPECT_EQ(part.getDispFileName(), QStringLiteral("file"));
    EXPECT_EQ(part.getDispType(), 1);
    EXPECT_EQ(part.getDescription(), QStringLiteral("description"));
    EXPECT_EQ(part.getLocation(), QStringLiteral("location"));
    EXPECT_EQ(part.getID(), QStringLiteral("<id>"));
    EXPECT_EQ(part.mBodyData, "body");
    EXPECT_EQ(part.mBodyFile, QStringLiteral("/a/file"));
    EXPECT_EQ(part.mBodyOffset, 3);
    EXPECT_EQ(part.mBodyLength, 4);
    EXPECT_FALSE(part.isInMemory());
    EXPECT_TRUE(part.mEncoded);
    EXPECT_FALSE(part.isAttDownloaded());
    EXPECT_EQ(part.getMethod(), QStringLiteral("REQUEST"));
    EXPECT_EQ(part.getASAttName(), QStringLiteral("announced"));
    EXPECT_EQ(part.getAttSize(), 77);
    EXPECT_EQ(part.getPartID(), QStringLiteral("1.2"));
    EXPECT_EQ(part.mBoundary, QStringLiteral("bound"));
}

} // namespace

TEST(EMAIL_MultiPart, NewPartIsInMemoryAndEmpty)
{
    static_assert(std::has_virtual_destructor_v<EMAIL_MultiPart>);
    EMAIL_MultiPart parent(nullptr);
    EMAIL_MultiPart part(&parent);
    EXPECT_EQ(part.getParent(), &parent);
    for (const QString* text : {&part.mTypeStr, &part.mSubTypeStr, &part.mName, &part.mDispFileName,
                                &part.mDescription, &part.mLocation, &part.mID, &part.mBodyFile,
                                &part.mMethod, &part.mASAttName, &part.mPartID, &part.mBoundary})
        EXPECT_TRUE(text->isNull());
    for (const int number : {part.mTypeEnum, part.mSubTypeEnum, part.mCTE, part.mCharset,
                             part.mDispType, part.mBodyOffset, part.mBodyLength, part.mAttSize})
        EXPECT_EQ(number, 0);
    EXPECT_TRUE(part.mBodyData.isEmpty());
    EXPECT_TRUE(part.mInMemory);
    EXPECT_TRUE(part.mAttDownloaded);
    EXPECT_FALSE(part.mEncoded);
    EXPECT_TRUE(part.mSubParts.autoDelete());
    EXPECT_EQ(part.getSubMultiPartCount(), 0);
    EXPECT_EQ(parent.getSubMultiPartCount(), 0) << "a parent is not told";
}

TEST(EMAIL_MultiPart, SettersStoreAndReadersReturn)
{
    EMAIL_MultiPart part(nullptr);
    fillMembers(part);
    expectFilled(part);
    part.setAttDownloaded();
    EXPECT_TRUE(part.isAttDownloaded());
    part.getBoundary() = QStringLiteral("other");
    EXPECT_EQ(&part.getBoundary(), &part.mBoundary);
    EXPECT_EQ(part.mBoundary, QStringLiteral("other"));
}

namespace {

struct TypeRow
{
    const char* name;
    void (EMAIL_MultiPart::*setNumber)(int);
    void (EMAIL_MultiPart::*setText)(const QString&);
    int number;
    const char* text;
};

class TypePair : public testing::TestWithParam<TypeRow>
{
protected:
    static QString text(const EMAIL_MultiPart& part) { return part.mTypeStr + part.mSubTypeStr; }
    static int number(const EMAIL_MultiPart& part) { return part.mTypeEnum + part.mSubTypeEnum; }
};

} // namespace

TEST_P(TypePair, IsKeptInStep)
{
    EMAIL_MultiPart part(nullptr);
    (part.*GetParam().setNumber)(GetParam().number);
    EXPECT_EQ(number(part), GetParam().number);
    EXPECT_EQ(text(part), QString::fromLatin1(GetParam().text));
    (part.*GetParam().setNumber)(999);
    EXPECT_EQ(number(part), 999);
    EXPECT_EQ(text(part), QString());
    const QString upper = QString::fromLatin1(GetParam().text).toUpper();
    (part.*GetParam().setText)(upper);
    EXPECT_EQ(number(part), GetParam().number);
    EXPECT_EQ(text(part), upper) << "the text is kept as given";
    (part.*GetParam().setText)(QStringLiteral("x-odd"));
    EXPECT_EQ(number(part), 0);
    EXPECT_EQ(text(part), QStringLiteral("x-odd"));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TypePair,
    testing::Values(
        TypeRow{"text", &EMAIL_MultiPart::setType, &EMAIL_MultiPart::setTypeStr, 1, "text"},
        TypeRow{"video", &EMAIL_MultiPart::setType, &EMAIL_MultiPart::setTypeStr, 7, "video"},
        TypeRow{"plain", &EMAIL_MultiPart::setSubType, &EMAIL_MultiPart::setSubTypeStr, 1, "plain"},
        TypeRow{"wap mixed", &EMAIL_MultiPart::setSubType, &EMAIL_MultiPart::setSubTypeStr, 72,
                "vnd.wap.multipart.mixed"}));

namespace {

struct InsertRow
{
    int index;
    const char* order;
};

class InsertSubPart : public testing::TestWithParam<InsertRow>
{
};

} // namespace

TEST_P(InsertSubPart, IndexOutsideTheListAppends)
{
    EMAIL_MultiPart part(nullptr);
    EXPECT_TRUE(part.addSubMultiPart(named("a"), 0));
    EXPECT_TRUE(part.addSubMultiPart(named("b"), -1));
    const EMAIL_MultiPart* added = named("x");
    EXPECT_TRUE(part.addSubMultiPart(added, GetParam().index));
    EXPECT_EQ(namesIn(part), QString::fromLatin1(GetParam().order));
    EXPECT_EQ(added->getParent(), nullptr) << "the parent is not changed";
}

INSTANTIATE_TEST_SUITE_P(Rows, InsertSubPart,
                         testing::Values(InsertRow{-5, "abx"}, InsertRow{-1, "abx"},
                                         InsertRow{0, "xab"}, InsertRow{1, "axb"},
                                         InsertRow{2, "abx"}, InsertRow{99, "abx"}));

TEST(EMAIL_MultiPart, SubPartsAreFoundAndRemovedByIndex)
{
    int deleted = 0;
    EMAIL_MultiPart part(nullptr);
    EXPECT_FALSE(part.addSubMultiPart(nullptr, 0));
    auto* first = new CountedPart(&deleted);
    auto* second = new CountedPart(&deleted);
    part.addSubMultiPart(first, -1);
    part.addSubMultiPart(second, -1);
    EXPECT_EQ(part.getSubMultiPartCount(), 2);
    EXPECT_EQ(part.getSubMultiPart(1), second);
    EXPECT_EQ(part.getSubMultiPart(-1), nullptr);
    EXPECT_EQ(part.getSubMultiPart(2), nullptr);
    EXPECT_FALSE(part.removeSubPart(-1));
    EXPECT_FALSE(part.removeSubPart(2));
    EXPECT_TRUE(part.removeSubPart(0));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(part.getSubMultiPart(0), second);
}

TEST(EMAIL_MultiPart, DestructorDeletesEveryLevel)
{
    int deleted = 0;
    {
        EMAIL_MultiPart part(nullptr);
        auto* middle = new CountedPart(&deleted);
        middle->addSubMultiPart(new CountedPart(&deleted), -1);
        middle->addSubMultiPart(new CountedPart(&deleted), -1);
        part.addSubMultiPart(middle, -1);
        part.addSubMultiPart(new CountedPart(&deleted), -1);
    }
    EXPECT_EQ(deleted, 4);
}

TEST(EMAIL_MultiPart, CopyHoldsEveryMemberAndLevel)
{
    EMAIL_MultiPart top(nullptr);
    EMAIL_MultiPart source(&top);
    fillMembers(source);
    EMAIL_MultiPart* middle = named("m");
    middle->addSubMultiPart(named("1"), -1);
    middle->addSubMultiPart(named("2"), -1);
    fillMembers(*middle->getSubMultiPart(1));
    source.addSubMultiPart(middle, -1);
    source.addSubMultiPart(named("n"), -1);
    {
        const EMAIL_MultiPart copy(source);
        expectFilled(copy);
        EXPECT_EQ(copy.getParent(), &top) << "the top claims the source's parent";
        EXPECT_EQ(namesIn(copy), QStringLiteral("mn"));
        EMAIL_MultiPart* copiedMiddle = copy.getSubMultiPart(0);
        EXPECT_NE(copiedMiddle, middle);
        EXPECT_EQ(copiedMiddle->getParent(), &copy);
        EXPECT_EQ(copy.getSubMultiPart(1)->getParent(), &copy);
        EXPECT_EQ(copiedMiddle->getSubMultiPart(0)->getName(), QStringLiteral("1"));
        EXPECT_EQ(copiedMiddle->getSubMultiPart(0)->getParent(), copiedMiddle);
        expectFilled(*copiedMiddle->getSubMultiPart(1));
        copiedMiddle->setName(QStringLiteral("changed"));
    }
    EXPECT_EQ(namesIn(source), QStringLiteral("mn")) << "the source outlives its copy";
    EXPECT_EQ(namesIn(*middle), QStringLiteral("1name"));
}

TEST(EMAIL_MultiPart, AssignmentReplacesTheOldSubParts)
{
    int deleted = 0;
    EMAIL_MultiPart target(nullptr);
    target.addSubMultiPart(new CountedPart(&deleted), -1);
    EMAIL_MultiPart source(nullptr);
    source.addSubMultiPart(named("s"), -1);
    EMAIL_MultiPart& result = target = source;
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(namesIn(target), QStringLiteral("s"));
    EXPECT_EQ(target.getSubMultiPart(0)->getParent(), &target);
}

TEST(EMAIL_MultiPart, SelfAssignmentDeletesTheSubParts)
{
    int deleted = 0;
    EMAIL_MultiPart parent(nullptr);
    EMAIL_MultiPart part(&parent);
    fillMembers(part);
    part.addSubMultiPart(new CountedPart(&deleted), -1);
    const EMAIL_MultiPart& same = part;
    part = same;
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(part.getSubMultiPartCount(), 0);
    EXPECT_EQ(part.getParent(), &parent);
    expectFilled(part);
}

TEST(EMAIL_MultiPart, SubPartIsAssignedToItsOwnParent)
{
    EMAIL_MultiPart part(nullptr);
    part.addSubMultiPart(named("a"), -1);
    part.getSubMultiPart(0)->addSubMultiPart(named("b"), -1);
    part = *part.getSubMultiPart(0);
    EXPECT_EQ(part.getName(), QStringLiteral("a"));
    EXPECT_EQ(namesIn(part), QStringLiteral("b"));
}

TEST(EMAIL_MultiPart, ParentIsAssignedToItsOwnSubPart)
{
    EMAIL_MultiPart part(nullptr);
    part.setName(QStringLiteral("top"));
    part.addSubMultiPart(named("a"), -1);
    EMAIL_MultiPart* sub = part.getSubMultiPart(0);
    sub->addSubMultiPart(named("b"), -1);
    *sub = part;
    EXPECT_EQ(sub->getName(), QStringLiteral("top"));
    EXPECT_EQ(namesIn(*sub), QStringLiteral("a"));
    EXPECT_EQ(sub->getSubMultiPart(0)->getSubMultiPartCount(), 0);
}

TEST(EMAIL_MultiPart, SendableTreeHasNoDownloadStateOnAnyLevel)
{
    EMAIL_MultiPart part(nullptr);
    fillMembers(part);
    EMAIL_MultiPart* middle = named("m");
    fillMembers(*middle);
    middle->addSubMultiPart(named("x"), -1);
    fillMembers(*middle->getSubMultiPart(0));
    part.addSubMultiPart(middle, -1);
    part.makeHeaderSendable();
    for (const EMAIL_MultiPart* p :
         {static_cast<const EMAIL_MultiPart*>(&part), static_cast<const EMAIL_MultiPart*>(middle),
          static_cast<const EMAIL_MultiPart*>(middle->getSubMultiPart(0))}) {
        EXPECT_EQ(p->getAttSize(), -1);
        EXPECT_TRUE(p->getASAttName().isNull());
        EXPECT_TRUE(p->isAttDownloaded());
        EXPECT_EQ(p->getPartID(), QStringLiteral("1.2")) << "the identifier is kept";
    }
}

// Nobody but an application that handles the list itself can put one there.
TEST(EMAIL_MultiPart, NullSubPartsArePassedOver)
{
    EMAIL_MultiPart part(nullptr);
    part.mSubParts.append(nullptr);
    part.addSubMultiPart(named("a"), -1);
    fillMembers(*part.getSubMultiPart(1));
    const EMAIL_MultiPart copy(part); // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.getSubMultiPartCount(), 1);
    part.makeHeaderSendable();
    EXPECT_EQ(part.getSubMultiPart(1)->getAttSize(), -1);
}

} // namespace email_multi_part_test
