// SPDX-License-Identifier: MIT
// Reads what a person typed into an address field, says what is no address, and writes the rest so
// that every reader finds the same people: names with commas, quotes and letters of all scripts.
#include <cstdio>
#include <extra/AddressList.h>
#include <utility/EMAIL_MIME.h>

namespace {

void print(const char* what, const QList<tarvomime::Mailbox>& people)
{
    std::printf("%s\n", what);
    for (const tarvomime::Mailbox& mailbox : people) {
        const QString shown = tarvomime::mailboxText(mailbox);
        std::printf("  %s%s%s\n", shown.toUtf8().constData(), mailbox.isAddress() ? "" : ": ",
                    mailbox.problem.toUtf8().constData());
    }
}

QList<tarvomime::Mailbox> addressesAmong(const QList<tarvomime::Mailbox>& people)
{
    QList<tarvomime::Mailbox> addresses;
    for (const tarvomime::Mailbox& mailbox : people) {
        if (mailbox.isAddress())
            addresses.append(mailbox);
    }
    return addresses;
}

} // namespace

int main()
{
    const QString typed =
        QStringLiteral("\"Müller, Jörg\" <j@a.example>, Łukasz Żak <l@b.example>, nobody, "
                       "Board: mira@garten.example, \"The \\\"Boss\\\"\" <boss@garten.example>;");
    const QList<tarvomime::Mailbox> people = tarvomime::readTypedAddressList(typed);
    print("Typed:", people);

    const tarvomime::Result<QString> value = tarvomime::writeAddressList(addressesAmong(people));
    if (!value) {
        std::fprintf(stderr, "%s\n", value.reason().toLocal8Bit().constData());
        return 1;
    }
    EMAIL_MIME message;
    message.setTo(*value);
    std::printf("\n%s\n", QByteArray(message.assemble()).replace("\r\n", "\n").constData());

    print("Read again:", tarvomime::readAddressList(*message.getHeader(), "To"));
    return 0;
}
