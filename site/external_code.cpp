#include "site/external_code.h"

#include <algorithm>
#include <array>

#include "base/tag_walk.h"
#include "site/external_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool suffers_from_publishing(QStringView code) {
    return code.contains(u'\\') || code.contains(u'§') || code.contains(u'ç') || code.contains(u"file://"_s);
}

/// True for a script of the page's own that browsers run, or a style.
bool is_code(const TagPlace& place, QStringView tag) {
    const QStringView type = attribute_value(tag, u"type").trimmed();
    if (place.name == u"STYLE") return type.isEmpty() || type.compare(u"text/css", Qt::CaseInsensitive) == 0;
    const bool script = place.name == u"SCRIPT" && !find_attribute(tag, u"src");
    static constexpr std::array<QStringView, 3> kTypes{u"javascript", u"ecmascript", u"module"};
    return script && (type.isEmpty() || std::ranges::any_of(kTypes, [&](QStringView word) {
                          return type.contains(word, Qt::CaseInsensitive);
                      }));
}

/// The style with addresses as its file in the folder of pictures needs them.
QString style_of_file(const QString& style) {
    return with_replaced_addresses(
        style, style_references(style), [](const PageReference& reference) -> std::optional<QString> {
            if (resolve_address(reference.address, {}).place != AddressTarget::Place::kWebsite) return std::nullopt;
            return address_from_styles(reference.address);
        });
}

}  // namespace

QString with_code_in_files(const QString& text, const QString& name, TextEncoding encoding, ExternalFiles& files) {
    QString result;
    qsizetype copied = 0;
    TagWalk walk(text);
    std::optional<TagPlace> opening;
    while (const auto place = walk.next()) {
        const auto code_tag = std::exchange(opening, place);
        if (!code_tag || place->name != u'/' + code_tag->name) continue;
        const QStringView tag = QStringView(text).first(code_tag->end).sliced(code_tag->begin);
        const QString code = text.sliced(code_tag->end, place->begin - code_tag->end);
        if (!is_code(*code_tag, tag) || !suffers_from_publishing(code)) continue;

        const bool style = code_tag->name == u"STYLE";
        const QString path = files.bring_text(encode_text(style ? style_of_file(code) : code, encoding),
                                              name + (style ? u".css"_s : u".js"_s));
        if (path.isEmpty()) continue;
        // The other attributes go with it: the medium of a style, the type of a script.
        result.append(QStringView(text).first(code_tag->begin).sliced(copied));
        result += style ? u"<LINK rel=stylesheet href=\"%1\""_s.arg(path) : u"<SCRIPT src=\"%1\""_s.arg(path);
        result.append(tag.sliced(tag_name_end(tag)));
        if (!style) result += u"</SCRIPT>"_s;
        copied = place->end;
    }
    return result.append(QStringView(text).sliced(copied));
}

}  // namespace pondera
