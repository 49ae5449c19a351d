// SPDX-License-Identifier: MIT
// interop_people: reads a JSON array of [name, address] from standard input and writes a message to
// standard output that goes to them.
#include "extra/AddressList.h"
#include "utility/EMAIL_MIME.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <cstdio>

int main()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    QList<tarvomime::Mailbox> people;
    for (const QJsonValue& person : QJsonDocument::fromJson(input.readAll()).array()) {
        tarvomime::Mailbox mailbox;
        mailbox.name = person.toArray().at(0).toString();
        mailbox.address = person.toArray().at(1).toString();
        people.append(mailbox);
    }
    const tarvomime::Result<QString> value = tarvomime::writeAddressList(people);
    if (!value) {
        std::fprintf(stderr, "%s\n", qPrintable(value.reason()));
        return 1;
    }
    EMAIL_MIME message;
    message.setTo(*value);
    std::fputs(message.assemble().data(), stdout);
    return 0;
}
