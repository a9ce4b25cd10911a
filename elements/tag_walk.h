#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace pondera {

/// A tag's place in a text: `begin` is its "<", `end` stands behind its ">" (or, for a tag that is never closed, where
/// the next tag or the end of the text cuts it off).
struct TagPlace {
    qsizetype begin = 0;
    qsizetype end = 0;
    QString name;  ///< upper case, with the slash of an end tag: "IMG", "/A"
    bool closed = true;
};

/// Finds the tags of a page text one after the other, in linear time. It searches for substrings and parses nothing: a
/// ">" or "<" inside a quoted attribute value belongs to the value, and comments and the insides of SCRIPT and STYLE
/// hold no tags.
class TagWalk {
  public:
    /// `text` must outlive the walk.
    explicit TagWalk(QStringView text) : text_(text) {}

    /// The next tag, nothing at the end of the text.
    std::optional<TagPlace> next();

  private:
    void find_end(TagPlace& tag);
    void skip_raw_text(const QString& name);

    QStringView text_;
    qsizetype position_ = 0;
    bool quotes_pair_ =
        true;  ///< false once a value's closing quote was missing, so that nobody searches for one again
};

/// The place of an attribute's value in a tag's text.
struct AttributePlace {
    qsizetype value_begin = 0;  ///< first character of the value, behind its opening quote
    qsizetype value_end = 0;    ///< behind the last character of the value
    QChar quote;                ///< the quote around the value, null when it has none
};

/// Finds an attribute in the text of one tag ("<IMG name=a src=\"b\">") by its name in any case.
[[nodiscard]] std::optional<AttributePlace> find_attribute(QStringView tag, QStringView name);

/// The value of an attribute as it stands in the tag, empty when the tag has none.
[[nodiscard]] QStringView attribute_value(QStringView tag, QStringView name);

}  // namespace pondera
