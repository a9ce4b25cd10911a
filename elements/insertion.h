#pragma once

#include <QSize>
#include <QString>

#include "workbench/popup_size.h"

namespace pondera {

/// A picture that is to become an element of a page.
struct PictureInsertion {
    QString page_text;    ///< the document's text: the free level and the names in use come from it
    QString page_file;    ///< the page's file name, with or without its editing mark
    QString picture;      ///< path for the src attribute, relative to the page: "media/img/x.jpg"
    QString name_source;  ///< what the element is named after: the picture's file name, or "marchio" for the logo
    QSize size;           ///< written into the style when valid; else the picture shows at its own size
};

/// The markup of an image or logo, in the editing control's spelling: free stacking level, default position (10, 10; on
/// a popup page 0, 0), name, the rule of level 830 and the picture, in this order.
[[nodiscard]] QString picture_markup(const PictureInsertion& insertion);

/// How far from the page's left and top edge a new picture is placed.
[[nodiscard]] int default_edge(const QString& page_file);

/// A picture's size scaled down to a width, in its proportions.
[[nodiscard]] QSize size_that_fits(const QSize& picture, int width);

/// True for a popup page's file name ("§_x_..." or "_x_...").
[[nodiscard]] bool is_popup_page(const QString& page_file);

/// What placing a picture on a popup page does to the recorded window size: a size of which neither the width is "800"
/// nor the height "600" goes back to 800 by 600.
void settle_popup_size(PopupSize& size);

}  // namespace pondera
