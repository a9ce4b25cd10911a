#include "site/page_kind.h"

#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

PageKind page_kind(const QString& file_name) {
    for (const PageKind kind : {PageKind::kSubject, PageKind::kExternal, PageKind::kPhotoShow, PageKind::kProtected})
        if (file_name.contains(kind_code(kind))) return kind;
    const QString published = published_name(file_name);
    for (const PageKind kind : {PageKind::kCard, PageKind::kPopup})
        if (published.startsWith(kind_code(kind))) return kind;
    return PageKind::kNone;
}

QString kind_code(PageKind kind) {
    switch (kind) {
        case PageKind::kCard:
            return u"_1_"_s;
        case PageKind::kSubject:
            return u"_4_"_s;
        case PageKind::kPhotoShow:
            return u"_2_"_s;
        case PageKind::kProtected:
            return u"_0_"_s;
        case PageKind::kExternal:
            return u"_y_"_s;
        case PageKind::kPopup:
            return u"_x_"_s;
        case PageKind::kNone:
            break;
    }
    return {};
}

}  // namespace pondera
