#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace pondera {

/// An attribute's place in a text.
struct AttributePlace {
    qsizetype name_begin = 0;
    qsizetype name_end = 0;
    qsizetype value_begin = 0;  ///< first character of the value, behind its opening quote
    qsizetype value_end = 0;    ///< behind the last character of the value
    QChar quote;                ///< the quote around the value, null when it has none
};

/// Finds the attributes of a tag one after the other; each place in the text is looked at once. A quote counts where a
/// value begins with it and the text holds it once more, anywhere further on; else it belongs to an unquoted value,
/// which ends at white space or at the tag's end.
class AttributeScan {
  public:
    /// Begins behind a tag's name, at `position` of `text`, which must outlive the scan.
    explicit AttributeScan(QStringView text, qsizetype position = 0);

    /// The next attribute that has a value, nothing at the tag's end.
    std::optional<AttributePlace> next();

    /// Where the scan stands: after the last attribute, at the ">" or "<" that ends the tag or at the text's end.
    [[nodiscard]] qsizetype position() const { return position_; }
    void move_to(qsizetype position) { position_ = position; }

  private:
    [[nodiscard]] bool at_tag_end() const;
    void skip_blanks();
    [[nodiscard]] bool opens_value();

    static constexpr qsizetype kNotSought = -2;

    QStringView text_;
    qsizetype position_;
    qsizetype last_double_quote_ = kNotSought;
    qsizetype last_single_quote_ = kNotSought;
};

/// A tag's place in a text: `begin` is its "<", `end` stands behind its ">" (or, for a tag that is never closed, where
/// the next tag or the end of the text cuts it off).
struct TagPlace {
    qsizetype begin = 0;
    qsizetype end = 0;
    QString name;  ///< upper case, with the slash of an end tag: "IMG", "/A"
    bool closed = true;
};

/// Finds the tags of a page text one after the other, in linear time. It searches for substrings and parses nothing: a
/// ">" or "<" inside a quoted attribute value belongs to the value, and comments and the insides of elements that hold
/// only text (SCRIPT, STYLE, TEXTAREA, TITLE, XMP) hold no tags.
class TagWalk {
  public:
    /// `text` must outlive the walk.
    explicit TagWalk(QStringView text) : text_(text), attributes_(text) {}

    /// The next tag, nothing at the end of the text.
    std::optional<TagPlace> next();

  private:
    [[nodiscard]] qsizetype tag_end(qsizetype name_end);
    void skip_text_only(const QString& name);

    QStringView text_;
    AttributeScan attributes_;
    qsizetype position_ = 0;
};

/// Where the name of the tag at the beginning of `tag` ends.
[[nodiscard]] qsizetype tag_name_end(QStringView tag);

/// Finds an attribute in the text of one tag ("<IMG name=a src=\"b\">") by its name in any case.
[[nodiscard]] std::optional<AttributePlace> find_attribute(QStringView tag, QStringView name);

/// The value of an attribute as it stands in the tag, empty when the tag has none.
[[nodiscard]] QStringView attribute_value(QStringView tag, QStringView name);

}  // namespace pondera
