#pragma once

#include <QByteArray>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include "base/text_file.h"
#include "workbench/editing_control.h"

class QMimeData;
class QWebEngineView;

namespace pondera {

class ScriptPage;

/// The editing control as a widget, on the web engine. The document lives in the engine; an editing script in a world
/// of its own selects, moves, formats, records every change and spells the text. Page scripts never run here.
class DHTMLEdit : public QWidget, public EditingControl {
    Q_OBJECT

  public:
    explicit DHTMLEdit(QWidget* parent = nullptr);
    ~DHTMLEdit() override;

    FileResult<void> load_document(const QString& path) override;
    FileResult<void> reload_document() override;
    FileResult<void> save_document(const QString& path) override;
    [[nodiscard]] QString document_path() const override { return path_; }
    [[nodiscard]] bool changed_on_disk() const override;
    [[nodiscard]] bool modified() override;
    void mark_modified() override;
    [[nodiscard]] QString text() override;
    void replace_text(const QString& html) override;
    void paste_at_end(const QString& markup) override;
    [[nodiscard]] Selection selection() override;
    bool replace_selection(const QString& markup) override;
    bool replace_selected_element(const QString& markup) override;
    bool replace_selection_parent(const QString& markup) override;
    bool select_element(const QString& name) override;
    [[nodiscard]] QList<PagePlace> places() override;
    bool link_to_place(int index, const QString& name) override;
    [[nodiscard]] QString place_name() override;
    bool set_place_name(const QString& name) override;
    AddressShown show_address(const QString& address, int number) override;
    [[nodiscard]] CommandStatus status(EditCommand command) override;
    bool execute(EditCommand command, const QVariant& value = {}) override;
    void paste_text() override;
    void caret_to_start() override;
    void keep_place() override;
    void restore_place() override;

    /// What the window shows of the control, in one question: {"statuses": {"5000": 3, …}, "font", "size", "modified",
    /// "selection": "none" | "text" | "control"}.
    [[nodiscard]] QJsonObject state();

    /// Gives the page the keyboard.
    void take_focus();

    /// The engine's view inside, for what only it can do (focus, zoom).
    [[nodiscard]] QWebEngineView* view() const { return view_; }

  signals:
    /// The selection, a command's status or the modified state may have changed; several changes in a row are told
    /// once.
    void stateChanged();

    /// The person asked for the right-click menu at a place on the screen; what was clicked is selected already.
    void contextMenuRequested(const QPoint& place);

    /// Files were dropped on the page.
    void filesDropped(const QStringList& paths);

    /// A picture was pasted that is no file.
    void picturePasted(const QImage& picture);

    /// The engine's process ended unexpectedly; the document was restored from the last text that was known (at most a
    /// few seconds old).
    void restoredAfterCrash();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QJsonValue ask(const QString& function, const QJsonArray& arguments = {});
    bool show_text(const QString& text);
    void paste();
    bool copy();
    void remember_file(const QByteArray& bytes);
    bool revive();
    [[nodiscard]] QString with_line_ends(const QString& text) const;

    QWebEngineView* view_;
    ScriptPage* page_;
    QString path_;
    QString folder_;  ///< the folder that the engine's document resolves addresses in
    TextEncoding encoding_ = TextEncoding::kUtf8;
    QString line_end_;
    QByteArray digest_;   ///< of the file's bytes as last loaded or saved
    QString known_text_;  ///< the last text known, for the case that the engine's process dies
    bool reviving_ = false;
    QTimer tell_state_;
    QTimer keep_text_;
};

}  // namespace pondera
