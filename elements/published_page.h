#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

#include "base/roots.h"

namespace pondera {

/// A page as its visitors get it, and what the conversion has to report to the person.
struct PublishedPage {
    QString text;
    QStringList reports;  ///< each text once
};

/// A stage that expands placeholders (a menu, a video) at the end of a conversion: page text in, page text out.
struct ExpansionStep {
    QString name;
    std::function<QString(const QString& page)> expand;
};

/// What a conversion is told besides the text.
struct Conversion {
    const Roots& roots;
    QString website;                  ///< name of the page's Website
    QList<ExpansionStep> expansions;  ///< run in this order on the converted text
    /// Called about a hundred times at most during the element walk; may be empty.
    std::function<void(int done, int total)> progress;
};

/// Turns an editing copy's text into the published page's: the fixed text repairs, then a walk over all elements that
/// normalises the style of positioned ones (those with a reserved name and media placeholders stay as they are) and
/// reports anchors without an end and images without a ">", then the expansions. Takes time in proportion to the text's
/// length.
[[nodiscard]] PublishedPage convert_page(const QString& text, const Conversion& conversion);

}  // namespace pondera
