// SPDX-License-Identifier: MIT
#include "extra/MessageContent.h"

#include "tests/extra/ContentRow.h"

#include <gmock/gmock.h>

namespace message_content_test {

using namespace tarvomime;
using namespace tarvomime::content;

namespace {

class Content : public testing::TestWithParam<ContentRow>
{
};

} // namespace

TEST_P(Content, IsWhatAReaderSees)
{
    expectContent(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Content,
    testing::Values(
        ContentRow{"Untyped", "A: b\n\nHello\n", "Hello\n", ""},
        ContentRow{"Plain", plain("Hello"), "Hello\n", ""}, ContentRow{"Empty", plain(""), "", ""},
        ContentRow{"CrLf", "A: b\r\n\r\nHello\r\nyou\r\n", "Hello\nyou\n", ""},
        ContentRow{"Flowed",
                   "Content-Type: text/plain; format=flowed\n\nHello \nyou\n> a \n> b\n-- \nme\n",
                   "Hello you\n> a b\n-- \nme\n", ""},
        ContentRow{"FlowedWithDelSp",
                   "Content-Type: text/plain; Format=Flowed; DelSp=Yes\n\nHel \nlo\n", "Hello\n",
                   ""},
        ContentRow{"NotFlowed", plain("Hello \nyou\n"), "Hello \nyou\n", ""},
        ContentRow{"Enriched", "Content-Type: text/enriched\n\n<bold>Hello</bold>\nyou\n\n<<you\n",
                   "Hello you\n<you\n", ""},
        ContentRow{"RichText", "Content-Type: text/richtext\n\nHello<nl>you\n", "Hello\nyou\n", ""},
        ContentRow{"Html", html("<p>Hello<br>you"), "Hello\nyou\n", ""},
        ContentRow{"Base64",
                   "Content-Type: text/plain\nContent-Transfer-Encoding: base64\n\nSGk=\n", "Hi\n",
                   ""},
        ContentRow{"CharsetByName", "Content-Type: text/plain; charset=windows-1252\n\n\x80", "€\n",
                   ""},
        ContentRow{"CharsetOfTheHtml",
                   html("<meta http-equiv=x content='text/html; charset=koi8-r'>\xD0\xD2"), "пр\n",
                   ""},
        ContentRow{"UndeclaredUtf8", "A: b\n\né", "é\n", ""}, ContentRow{"Image", kImage, "", "1"},
        ContentRow{"Calendar", kCalendar, "", "1", "", "1"},
        ContentRow{"SaysAttachment", kAttached, "", "1"},
        ContentRow{"NamedText", kNamed, "file\n", ""},
        ContentRow{"OpaqueSignature",
                   "Content-Type: application/pkcs7-mime; smime-type=signed-data\n\nx", "", "1"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ContentAsHtml, IsTheSendersWithItsImages)
{
    const EMAIL_MIME message(container("multipart/related", {html("<img src=cid:i%40a>"), kImage}));
    const MessageContent content = readContent(*message.mMessage);
    EXPECT_EQ(shownHtml(content).valueOr(""), "<img src=cid:i%40a>");
    EXPECT_EQ(findInline(content, 0, "cid:i%40a"), 2);
    EXPECT_EQ(findInline(content, 0, "cid:other"), -1);
    EXPECT_EQ(findInline(content, 0, "cid:"), -1);
    EXPECT_EQ(findInline(content, 0, ""), -1);
}

TEST(ContentAsHtml, IsMadeOfPlainText)
{
    const EMAIL_MIME message(plain("1 < 2"));
    EXPECT_EQ(shownHtml(readContent(*message.mMessage)).valueOr(""), "<pre>1 &lt; 2\n</pre>\n");
}

TEST(ContentOfAFileThatIsGone, FailsWithAReason)
{
    EMAIL_MIME message;
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.eml");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(plain("a"));
        file.close();
        ASSERT_EQ(message.parse(path), 0);
    }
    const Result<QString> text = shownText(readContent(*message.mMessage));
    EXPECT_FALSE(text);
    EXPECT_THAT(text.reason().toStdString(), testing::StartsWith("its text cannot be read"));
}

} // namespace message_content_test
