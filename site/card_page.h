#pragma once

#include <QString>

namespace pondera {

/// What a page made from a card template gets of its own.
struct CardPage {
    QString title;            ///< the page title
    QString heading;          ///< what the visitor reads above the page
    bool photo_show = false;  ///< keeps the card's photo-show; all other pages go without it
};

/// The text of a page made from the text of a card template: the title MODELLO and the heading placeholder "Subject..."
/// are replaced by plain text, the blocks between "<!-- photo-show -->" and "<!-- /photo-show -->" lose their marks or
/// go as a whole.
[[nodiscard]] QString page_from_card(const QString& card_text, const CardPage& page);

}  // namespace pondera
