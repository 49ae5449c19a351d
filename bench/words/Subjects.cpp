// SPDX-License-Identifier: MIT
#include "bench/words/Subjects.h"

#include "utility/EMAIL_Util.h"

#include <iterator>

namespace {

struct Sample
{
    const char* text;
    int charset;
    // The form of its word; 0 for a text without words.
    char form;
};

// Twenty samples, so that each stands for five of a hundred.
const Sample samples[] = {
    {"Re: Minutes of the meeting", CHARSET_UTF_8, 0},
    {"[build] nightly run finished without errors", CHARSET_UTF_8, 0},
    {"Your order has been shipped", CHARSET_UTF_8, 0},
    {"Fwd: quarterly figures, second draft", CHARSET_UTF_8, 0},
    {"Invoice 4711", CHARSET_UTF_8, 0},
    {"Einladung zum Sommerfest für alle", CHARSET_UTF_8, 'B'},
    {"Réunion reportée à jeudi", CHARSET_UTF_8, 'B'},
    {"Напоминание о встрече", CHARSET_UTF_8, 'B'},
    {"会議のお知らせ", CHARSET_UTF_8, 'B'},
    {"🎉 Welcome aboard 🎉", CHARSET_UTF_8, 'B'},
    {"Bestellbestätigung für Ihre Bestellung", CHARSET_UTF_8, 'Q'},
    {"Niño & El Niño – résumé", CHARSET_UTF_8, 'Q'},
    {"Wiadomość o przesyłce", CHARSET_UTF_8, 'Q'},
    {"Confirmación de su cita médica", CHARSET_UTF_8, 'Q'},
    {"Очень длинная тема, которая не помещается в одно слово и занимает несколько строк заголовка",
     CHARSET_UTF_8, 'B'},
    {"Ein sehr langer Betreff über Änderungen an den Öffnungszeiten während der nächsten Wochen",
     CHARSET_UTF_8, 'B'},
    {"Grüße aus München", CHARSET_ISO_8859_1, 'Q'},
    {"Привет из Москвы", CHARSET_KOI8_U, 'B'},
    {"Счёт на оплату", CHARSET_WINDOWS_1251, 'B'},
    {"你好，世界", CHARSET_GB2312, 'B'},
};

QByteArray wordOf(const QString& text, int charset, const QByteArray& name, char form)
{
    QCString payload;
    EMAIL_Util::encode_2047_String_Aux(text, charset,
                                       form == 'B' ? CTE_BASE64 : CTE_QUOTED_PRINTABLE, payload);
    QByteArray bytes = payload;
    if (form == 'Q')
        bytes.replace("=20", "_").replace('?', "=3F");
    return "=?" + name + '?' + form + '?' + bytes + "?=";
}

// Words of at most fifteen characters each, folded as mail programs fold them.
QByteArray wireOf(const QString& text, const Sample& sample, const QByteArray& name)
{
    if (sample.form == 0)
        return text.toLatin1();
    constexpr int longestWord = 40;
    if (text.length() <= longestWord)
        return wordOf(text, sample.charset, name, sample.form);
    QByteArray wire;
    for (int position = 0; position < text.length(); position += 15) {
        if (position > 0)
            wire += "\r\n ";
        wire += wordOf(text.mid(position, 15), sample.charset, name, sample.form);
    }
    return wire;
}

} // namespace

std::vector<Subject> mixedSubjects(int count)
{
    std::vector<Subject> subjects;
    for (int i = 0; i < count; ++i) {
        const Sample& sample = samples[static_cast<std::size_t>(i) % std::size(samples)];
        QCString name;
        EMAIL_Util::charsetEnumToStr(sample.charset, name);
        const QString text = QString::fromUtf8(sample.text) + ' ' + QString::number(i);
        subjects.push_back({wireOf(text, sample, name), text, sample.charset, name});
    }
    return subjects;
}
