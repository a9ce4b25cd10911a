#include "shell/pages/page_icons.h"

#include "shell/command_actions.h"
#include "site/page_kind.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QString icon_name(const QString& file_name) {
    if (is_home_page(file_name)) return u"home"_s;
    if (is_document_file(file_name)) return u"document"_s;
    switch (page_kind(file_name)) {
        case PageKind::kPhotoShow:
            return u"page-show"_s;
        case PageKind::kProtected:
            return u"page-protected"_s;
        case PageKind::kExternal:
            return u"page-external"_s;
        case PageKind::kPopup:
            return u"page-popup"_s;
        default:
            return u"page"_s;
    }
}

}  // namespace

const QIcon& PageIcons::of(const QString& file_name) {
    const QString name = icon_name(file_name);
    const auto known = icons_.constFind(name);
    return known != icons_.constEnd() ? *known : *icons_.insert(name, icon_named(name));
}

}  // namespace pondera
