#include "elements/element_name.h"

#include <QSet>

#include <algorithm>
#include <array>

#include "base/tag_walk.h"
#include "base/text.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kReplacedCharacters = u" _\r\n!,.?;:*/+-";

constexpr std::array<QStringView, 11> kReservedCodes{u"name=HOMExPAGE",    u"name=mc", u"name=Argomento", u"name=pa",
                                                     u"name=pu",           u"name=mr", u"name=ps",        u"name=rr",
                                                     u"name=Tasto_Stampa", u"name=sr", u"name=Subject"};

bool begins_with_media_code(QStringView name) {
    return name.size() >= 4 && name[0] == u'S' &&
           std::ranges::all_of(name.sliced(1, 3), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QSet<QString> names_of(const QString& page) {
    QSet<QString> names;
    TagWalk walk(page);
    while (const auto tag = walk.next())
        names.insert(attribute_value(QStringView(page).sliced(tag->begin, tag->end - tag->begin), u"name").toString());
    return names;
}

}  // namespace

QString element_name(const QString& file_name) {
    QString name = file_name;
    for (const QChar c : kReplacedCharacters) name.replace(c, u'x');
    return name.replace(u"style"_s, u"stile"_s).replace(u"STYLE"_s, u"STILE"_s);
}

QString free_element_name(const QString& file_name, const QString& page) {
    QString base = without(element_name(file_name), u"\"<>§ç\\");
    if (base.isEmpty()) base = u"image"_s;
    if (begins_with_media_code(base) || has_reserved_name(u"name="_s + base)) base.prepend(u'x');
    const QSet<QString> taken = names_of(page);
    QString name = base;
    for (int number = 2; taken.contains(name); ++number) name = base + QString::number(number);
    return name;
}

bool has_reserved_name(QStringView tag) {
    return std::ranges::any_of(kReservedCodes, [&](QStringView code) { return tag.contains(code); });
}

bool is_media_placeholder(QStringView tag) {
    return begins_with_media_code(attribute_value(tag, u"name"));
}

}  // namespace pondera
