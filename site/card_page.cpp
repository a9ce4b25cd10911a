#include "site/card_page.h"

#include "base/text.h"

namespace pondera {

using namespace Qt::StringLiterals;

QString page_from_card(const QString& card_text, const CardPage& page) {
    const QString show_begin = u"<!-- photo-show -->"_s;
    const QString show_end = u"<!-- /photo-show -->"_s;
    QString text = card_text;
    if (page.photo_show)
        for (const QString& mark : {show_begin, show_end}) text = replace_all(text, mark, {}, Qt::CaseInsensitive);
    else
        text = remove_blocks(text, show_begin, show_end);
    text = replace_all(text, u"<title>MODELLO</title>"_s, u"<title>"_s + page.title.toHtmlEscaped() + u"</title>"_s,
                       Qt::CaseInsensitive);
    return replace_all(text, u"Subject..."_s, page.heading.toHtmlEscaped());
}

}  // namespace pondera
