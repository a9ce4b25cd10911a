#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QVariant>

#include <optional>

#include "base/file_error.h"

namespace pondera {

/// The editing control's commands, by the control's own numbers.
enum class EditCommand {
    kBold = 5000,
    kCopy = 5002,
    kCut = 5003,
    kDelete = 5004,
    kHyperlink = 5016,
    kIndent = 5018,
    kInsertTable = 5022,
    kItalic = 5023,
    kJustifyCenter = 5024,
    kJustifyLeft = 5025,
    kJustifyRight = 5026,
    kLockElement = 5027,
    kMakeAbsolute = 5028,
    kOrderedList = 5030,
    kOutdent = 5031,
    kPaste = 5032,
    kRedo = 5033,
    kSelectAll = 5035,
    kSendBackward = 5036,
    kBringForward = 5037,
    kSendBelowText = 5038,
    kBringAboveText = 5039,
    kSendToBack = 5040,
    kBringToFront = 5041,
    kBackColor = 5042,
    kFontName = 5044,
    kFontSize = 5045,
    kForeColor = 5046,
    kUnderline = 5048,
    kUndo = 5049,
    kUnlink = 5050,
    kUnorderedList = 5051,
};

enum class CommandStatus { kNotSupported = 0, kDisabled = 1, kEnabled = 3, kLatched = 7, kMixed = 11 };

enum class SelectionType { kNone, kText, kControl };

/// The selected image or positioned element, as the control shows it: lengths in CSS pixels, relative to the offset
/// parent.
struct SelectedElement {
    QString tag;  ///< upper case: "IMG", "DIV"
    QString name;
    QString alt;
    QString src;
    QRect box;        ///< offsetLeft, offsetTop, offsetWidth, offsetHeight
    QString z_index;  ///< the style's own value, empty when it has none
    bool positioned = false;
    bool locked = false;
    QString outer_html;         ///< in the control's own spelling
    QString parent_tag;         ///< "A" for an image wrapped in a link
    QString parent_outer_html;  ///< the whole anchor text of a wrapped image
};

/// What is selected in the page under edit.
struct Selection {
    SelectionType type = SelectionType::kNone;
    QString text;                            ///< the selected characters (type Text)
    QString html;                            ///< the selected markup (type Text)
    QString colour;                          ///< of the letters at the selection, "#RRGGBB"; empty for an element
    QString link_href;                       ///< the link around or in the selection, empty when there is none
    QString parent_outer_html;               ///< the element that holds the selected text
    std::optional<SelectedElement> element;  ///< set for type Control
};

/// A place of the page that a link can lead to: a named anchor, an element with an id, or a heading.
struct PagePlace {
    QString name;     ///< behind the "#" of a link to it; empty for a heading that has none yet
    QString text;     ///< the words there, shortened
    int heading = 0;  ///< 1 to 6 for a heading, else 0
};

/// What became of showing an address of the page.
enum class AddressShown {
    kMissing,  ///< the page does not hold it
    kHidden,   ///< it stands where nothing can be selected: in the head, a script, a style, the body's own tag
    kShown,
};

/// The editing control holds one page for editing in place. Its text is the control's own spelling of the document
/// (upper-case tags, styles as "Z-INDEX: 830; LEFT: 10px"); every change, whoever makes it, goes through its history
/// and can be undone.
class EditingControl {
  public:
    virtual ~EditingControl() = default;

    /// Loads a page file; the history starts anew. Fails with the numbers of FaultNumber: file not found, invalid path,
    /// access denied, frameset, mainly a server script, binary, too large. On failure the control keeps the document
    /// that it had.
    virtual FileResult<void> load_document(const QString& path) = 0;

    /// Takes the document's file from disk again, as one step that can be undone; afterwards the control is unmodified.
    /// Fails as load_document.
    virtual FileResult<void> reload_document() = 0;

    /// Writes the document to `path` in the encoding that it was read in; afterwards the control is unmodified. On
    /// failure the file on disk is the old one and the control stays modified.
    virtual FileResult<void> save_document(const QString& path) = 0;

    /// The path of the loaded document; empty when there is none.
    [[nodiscard]] virtual QString document_path() const = 0;

    /// True when the document's file was changed, replaced or removed by another program since it was loaded or saved
    /// here.
    [[nodiscard]] virtual bool changed_on_disk() const = 0;

    /// True when the document differs from what was last loaded or saved; undoing back to that state makes it false
    /// again.
    [[nodiscard]] virtual bool modified() = 0;

    /// Counts the document as modified until it is saved again, whatever undo does: what was made from it is not in
    /// order.
    virtual void mark_modified() = 0;

    /// The whole document in the control's own spelling.
    [[nodiscard]] virtual QString text() = 0;

    /// Replaces the whole document by `html`, as one step that can be undone. Unchanged parts of the body stay as they
    /// are.
    virtual void replace_text(const QString& html) = 0;

    /// Inserts markup at the end of the document body, selects the element and scrolls to it; one step.
    virtual void paste_at_end(const QString& markup) = 0;

    [[nodiscard]] virtual Selection selection() = 0;

    /// Replaces the selected text (or the selected element) by markup; one step. False when nothing is selected.
    virtual bool replace_selection(const QString& markup) = 0;

    /// Replaces the markup of the selected element (type Control) by markup and selects the element again; one step.
    virtual bool replace_selected_element(const QString& markup) = 0;

    /// Replaces the link (A element) around the selection, or the selection's parent element where there is none, by
    /// markup; one step.
    virtual bool replace_selection_parent(const QString& markup) = 0;

    /// Selects the first image or positioned element with that `name`; false when the page has none.
    virtual bool select_element(const QString& name) = 0;

    /// The places that a link can lead to, in their order on the page.
    [[nodiscard]] virtual QList<PagePlace> places() = 0;

    /// As kHyperlink, to the place with that index in places(), which gets `name` if it has none; one step.
    virtual bool link_to_place(int index, const QString& name) = 0;

    /// The name of the place that the caret stands at or that is selected; empty where there is none.
    [[nodiscard]] virtual QString place_name() = 0;

    /// Names the caret's place or the selected words. A place that has a name there gets this one, and the page's links
    /// to it follow; an empty name takes it away. One step. False when there is nothing to name.
    virtual bool set_place_name(const QString& name) = 0;

    /// Selects the element with the `number`th (from 0) of the page's addresses that are `address`, and scrolls to it.
    virtual AddressShown show_address(const QString& address, int number) = 0;

    [[nodiscard]] virtual CommandStatus status(EditCommand command) = 0;

    /// Executes a command; `value` is the font name, the font size 1 to 7, the colour "#RRGGBB", the link address, or
    /// for a table "ROWSxCOLUMNS". False when the command's status does not allow it.
    virtual bool execute(EditCommand command, const QVariant& value = {}) = 0;

    /// Pastes the clipboard's text without any formatting; one step.
    virtual void paste_text() = 0;

    /// Collapses the selection to the start of the document.
    virtual void caret_to_start() = 0;

    /// Remembers the selection (caret, words or element), for restore_place.
    virtual void keep_place() = 0;

    /// Selects again what was selected when keep_place was called.
    virtual void restore_place() = 0;
};

}  // namespace pondera
