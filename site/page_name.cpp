#include "site/page_name.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QStringView without_page_extension(QStringView file_name) {
    for (const QStringView extension : {u".html", u".htm"})
        if (file_name.endsWith(extension, Qt::CaseInsensitive)) return file_name.chopped(extension.size());
    return file_name;
}

QString list_tag(const QString& file_name) {
    if (is_home_page(file_name)) return u"  ; [index]"_s;
    if (file_name.endsWith(u".doc"_s, Qt::CaseInsensitive)) return u"  ;  [Word page]"_s;
    if (file_name.endsWith(u".pdf"_s, Qt::CaseInsensitive)) return u"  ;  [Acrobat page]"_s;
    switch (page_kind(file_name)) {
        case PageKind::kPhotoShow:
            return u"  ;  [photo-show]"_s;
        case PageKind::kProtected:
            return u"  ;  [protected page]"_s;
        case PageKind::kExternal:
            return u"  ;  [external web page]"_s;
        case PageKind::kPopup:
            return u"  ;  [popup]"_s;
        default:
            return u"  ;  [page]"_s;
    }
}

}  // namespace

QString strip_estensione(const QString& file_name) {
    return without_page_extension(file_name).toString();
}

QString strip_tutto(const QString& file_name) {
    const QString name = strip_estensione(published_name(file_name));
    static constexpr std::array kKinds{PageKind::kCard,      PageKind::kSubject,  PageKind::kPhotoShow,
                                       PageKind::kProtected, PageKind::kExternal, PageKind::kPopup};
    const bool coded = std::ranges::any_of(kKinds, [&](PageKind kind) { return name.startsWith(kind_code(kind)); });
    return coded ? name.sliced(3) : name;
}

bool is_home_page(const QString& file_name) {
    return published_name(file_name) == kHomePage;
}

QString display_name(const QString& file_name) {
    return is_home_page(file_name) ? u"HOME PAGE"_s : strip_tutto(file_name);
}

QString status_label(const QString& file_name) {
    struct Tag {
        PageKind kind;
        QStringView text;
    };
    static constexpr std::array kTags{
        Tag{PageKind::kPhotoShow, u"  [photo-show]"}, Tag{PageKind::kProtected, u"  [protected page]"},
        Tag{PageKind::kExternal, u"  [external web page]"}, Tag{PageKind::kPopup, u"  [popup]"}};
    const QString published = published_name(file_name);
    const auto* tag =
        std::ranges::find_if(kTags, [&](const Tag& t) { return published.startsWith(kind_code(t.kind)); });
    return tag == kTags.end() ? display_name(file_name) : display_name(file_name) + tag->text.toString();
}

QString page_list_entry(const QString& file_name) {
    return strip_tutto(file_name) + list_tag(file_name);
}

QString page_list_display(const QString& file_name) {
    return is_home_page(file_name) ? display_name(file_name) : page_list_entry(file_name);
}

QString editing_copy_name(const QString& published) {
    return (published == kHomePage ? u'ç' : u'§') + published;
}

QString published_name(const QString& file_name) {
    return without(file_name, u"§ç");
}

QString page_file_name(PageKind kind, const QString& name) {
    return kind_code(kind) + name + u".htm"_s;
}

bool is_page_file(const QString& file_name) {
    return without_page_extension(file_name).size() < file_name.size();
}

bool is_document_file(const QString& file_name) {
    return file_name.endsWith(u".doc"_s, Qt::CaseInsensitive) || file_name.endsWith(u".pdf"_s, Qt::CaseInsensitive);
}

bool is_never_listed(const QString& file_name) {
    return file_name.contains(u"Standard_Interface_card.htm"_s) || file_name.contains(u"vuota"_s) ||
           file_name.contains(u'ç') || file_name.contains(u'§') || file_name.endsWith(u"_card.htm"_s) ||
           file_name.compare(u"thumbs.db"_s, Qt::CaseInsensitive) == 0 ||
           file_name.compare(u"WS_FTP.LOG"_s, Qt::CaseInsensitive) == 0;
}

}  // namespace pondera
