// SPDX-License-Identifier: MIT
// Whole trees: as deep as a sender likes on a small stack, and any shape there and back.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <functional>
#include <pthread.h>
#include <random>

namespace part_trees_test {

namespace {

constexpr int deepLevels = 100000;

// Runs `action` on a thread with a stack of 256 KiB: a walk that recurses over this depth does not
// come back.
void onSmallStack(const std::function<void()>& action)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 * 1024);
    pthread_t thread;
    const auto run = [](void* argument) -> void* {
        (*static_cast<const std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run,
                             const_cast<void*>(static_cast<const void*>(&action))),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

void makeContainer(EMAIL_MultiPart& part)
{
    part.setType(TYPE_MULTIPART);
    part.setSubTypeStr(QStringLiteral("mixed"));
}

void makeDeep(EMAIL_MultiPart& top)
{
    EMAIL_MultiPart* part = &top;
    for (int level = 0; level < deepLevels; ++level) {
        makeContainer(*part);
        part->setNoAttDownloaded();
        auto* sub = new EMAIL_MultiPart(part);
        part->addSubMultiPart(sub, -1);
        part = sub;
    }
    part->setType(TYPE_TEXT);
    part->setSubType(1);
    part->setBody(QByteArray("deep"), true);
}

int depthOf(const EMAIL_MultiPart& top)
{
    int depth = 0;
    for (const EMAIL_MultiPart* part = &top; part->getSubMultiPartCount() > 0; ++depth)
        part = part->getSubMultiPart(0);
    return depth;
}

// A random tree: containers of up to four sub-parts, leaves of every kind of body.
class RandomTree
{
public:
    explicit RandomTree(unsigned int seed) : mEngine(seed) {}

    void fill(EMAIL_MultiPart& part, int levels)
    {
        if (levels > 0 && pick(3) != 0) {
            makeContainer(part);
            for (int count = pick(5); count > 0; --count) {
                auto* sub = new EMAIL_MultiPart(&part);
                fill(*sub, levels - 1);
                part.addSubMultiPart(sub, -1);
            }
        } else {
            fillLeaf(part);
        }
        fillNames(part);
    }

private:
    int pick(int count) { return static_cast<int>(mEngine() % static_cast<unsigned int>(count)); }

    QString word()
    {
        QString text;
        for (int length = 1 + pick(12); length > 0; --length)
            text += QChar(pick(4) == 0 ? 0x100 + pick(0x300) : 'a' + pick(26));
        return text;
    }

    void fillLeaf(EMAIL_MultiPart& part)
    {
        part.setType(1 + pick(2) * 4);
        part.setSubTypeStr(pick(2) == 0 ? QStringLiteral("plain") : QStringLiteral("x-odd"));
        part.setCTE(1 + pick(5));
        // Names in the later charsets, 20 to 23, are written as Latin-1 and do not all come back.
        part.setCharset(2 + pick(18));
        if (pick(3) == 0) {
            part.setBodyInfo(word(), pick(1000), pick(1000), pick(2) == 0);
            return;
        }
        QByteArray bytes;
        for (int length = 1 + pick(200); length > 0; --length)
            bytes += static_cast<char>('a' + pick(26));
        part.setBody(bytes, true);
    }

    void fillNames(EMAIL_MultiPart& part)
    {
        if (pick(2) == 0)
            part.setName(word());
        if (pick(2) == 0) {
            part.setDispFileName(word());
            part.setDispType(pick(2));
        }
        if (pick(3) == 0)
            part.setMethod(QStringLiteral("REQUEST"));
        if (pick(3) == 0)
            part.setNoAttDownloaded();
        if (pick(3) == 0)
            part.setPartID(QString::number(pick(100)));
        part.setAttSize(pick(100) - 1);
    }

    std::mt19937 mEngine;
};

void expectEqual(const EMAIL_MultiPart& a, const EMAIL_MultiPart& b)
{
    EXPECT_EQ(a.mTypeStr, b.mTypeStr);
    EXPECT_EQ(a.mSubTypeStr, b.mSubTypeStr);
    EXPECT_EQ(a.mName, b.mName);
    EXPECT_EQ(a.mDispFileName, b.mDispFileName);
    EXPECT_EQ(a.mDispType, b.mDispType);
    EXPECT_EQ(a.mMethod, b.mMethod);
    EXPECT_EQ(a.mAttDownloaded, b.mAttDownloaded);
    EXPECT_EQ(a.mAttSize, b.mAttSize);
    EXPECT_EQ(a.mPartID, b.mPartID);
    EXPECT_EQ(a.mInMemory, b.mInMemory);
    EXPECT_EQ(a.mBodyData, b.mBodyData);
    EXPECT_EQ(a.mBodyFile, b.mBodyFile);
    EXPECT_EQ(a.mBodyOffset, b.mBodyOffset);
    EXPECT_EQ(a.mBodyLength, b.mBodyLength);
    if (a.getSubMultiPartCount() == 0 && a.mTypeEnum != TYPE_MULTIPART) {
        EXPECT_EQ(a.mCTE, b.mCTE);
        EXPECT_EQ(a.mCharset, b.mCharset);
        EXPECT_EQ(a.mEncoded, b.mEncoded);
    }
    ASSERT_EQ(a.getSubMultiPartCount(), b.getSubMultiPartCount());
    for (int i = 0; i < a.getSubMultiPartCount(); ++i)
        expectEqual(*a.getSubMultiPart(i), *b.getSubMultiPart(i));
}

} // namespace

TEST(PartTrees, DeepTreeIsCopiedStrippedAndDeletedOnASmallStack)
{
    onSmallStack([] {
        EMAIL_MultiPart top(nullptr);
        makeDeep(top);
        EMAIL_MultiPart copy(top);
        EXPECT_EQ(depthOf(copy), deepLevels);
        copy = top;
        EXPECT_EQ(depthOf(copy), deepLevels);
        copy.makeHeaderSendable();
        EXPECT_TRUE(copy.getSubMultiPart(0)->isAttDownloaded());
        EXPECT_TRUE(top.removeSubPart(0));
        const EMAIL_MultiPart& same = copy;
        copy = same;
        EXPECT_EQ(depthOf(copy), 0);
    });
}

TEST(PartTrees, DeepTreeIsConvertedOnASmallStack)
{
    onSmallStack([] {
        EMAIL_MIME mime;
        mime.setType(TYPE_MULTIPART);
        {
            EMAIL_MultiPart top(nullptr);
            makeDeep(top);
            mime.addMultiPart(top, -1);
        }
        mime.makeHeaderSendable();
        EMAIL_MultiPart sendable(nullptr);
        ASSERT_TRUE(mime.getMultiPart(0, sendable));
        EXPECT_EQ(depthOf(sendable), deepLevels);
        EXPECT_TRUE(sendable.isAttDownloaded());
        EXPECT_FALSE(mime.hasAttachment());
        EXPECT_EQ(mime.getAttachNum(), 1);
        EXPECT_TRUE(mime.isCompleteMessage());
        QString text;
        EXPECT_EQ(mime.getBody(text, 0), 0);
        EXPECT_TRUE(mime.removeMultiPart(0));
    });
}

TEST(PartTrees, ManyPartsAreStrippedOneByOne)
{
    EMAIL_MIME mime;
    mime.setType(TYPE_MULTIPART);
    EMAIL_MultiPart part(nullptr);
    part.setType(TYPE_TEXT);
    part.setSubType(1);
    part.setNoAttDownloaded();
    for (int i = 0; i < 20000; ++i) {
        part.setBody(QByteArray::number(i), true);
        mime.addMultiPart(part, -1);
    }
    EXPECT_FALSE(mime.isCompleteMessage());
    mime.makeHeaderSendable();
    EXPECT_TRUE(mime.isCompleteMessage());
    ASSERT_EQ(mime.getMultiPartCount(), 20000);
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(mime.mMessage->mBody->bodyPart(i)->mBody->getMessage(), QByteArray::number(i));
}

TEST(PartTrees, RandomTreesComeBackAsTheyWent)
{
    const unsigned int firstSeed = std::random_device()();
    for (unsigned int round = 0; round < 200; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << firstSeed + round);
        EMAIL_MultiPart tree(nullptr);
        RandomTree(firstSeed + round).fill(tree, 4);
        EMAIL_MIME mime;
        mime.setType(TYPE_MULTIPART);
        mime.addMultiPart(tree, 0);
        EMAIL_MultiPart read(nullptr);
        ASSERT_TRUE(mime.getMultiPart(0, read));
        expectEqual(tree, read);
        expectEqual(tree, EMAIL_MultiPart(tree));
        if (HasFailure())
            return;
    }
}

} // namespace part_trees_test
