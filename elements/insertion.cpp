#include "elements/insertion.h"

#include "elements/element_name.h"
#include "elements/image_size.h"
#include "elements/stacking_level.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kTemplatePicture = u"C:\\Pondera\\Pondera_System\\gif\\1.gif"_s;
const QString kTemplate =
    u"<IMG style=\"Z-INDEX: 100; LEFT: 238px; POSITION: absolute; TOP: 108px\" src=\""_s + kTemplatePicture + u"\">"_s;

QString with_position(QString markup, int left, int top) {
    return markup.replace(u"LEFT: 238px"_s, u"LEFT: %1px"_s.arg(left))
        .replace(u"TOP: 108px"_s, u"TOP: %1px"_s.arg(top));
}

}  // namespace

QString picture_markup(const PictureInsertion& insertion) {
    const int edge = default_edge(insertion.page_file);
    const QString name = free_element_name(insertion.name_source, insertion.page_text);
    QString markup = with_free_level(kTemplate, FzIndex(insertion.page_text));
    markup = with_position(markup, edge, edge);
    if (insertion.size.isValid()) markup = image_with_size(markup, insertion.size);
    markup.replace(u"<IMG"_s, u"<IMG name=\"%1\""_s.arg(name));
    // The picture's path comes last: it may hold any of the texts that are replaced.
    return with_picture_level(markup).replace(kTemplatePicture, insertion.picture);
}

int default_edge(const QString& page_file) {
    return is_popup_page(page_file) ? 0 : 10;
}

QSize size_that_fits(const QSize& picture, int width) {
    return picture.scaled(QSize(width, picture.height()), Qt::KeepAspectRatio).expandedTo({1, 1});
}

bool is_popup_page(const QString& page_file) {
    return page_file.startsWith(u"§_x_"_s) || page_file.startsWith(u"_x_"_s);
}

void settle_popup_size(PopupSize& size) {
    const PopupSize standard;
    if (size.width != standard.width && size.height != standard.height) size = standard;
}

}  // namespace pondera
