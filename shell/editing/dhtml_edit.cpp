#include "shell/editing/dhtml_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <QWebEngineView>

#include "shell/editing/document_checks.h"
#include "shell/editing/script_page.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTellStateAfter = 30;   // milliseconds in which changes are told once
constexpr int kKeepTextAfter = 3000;  // milliseconds after a change until the text is kept

// Pages give up their places on windows as narrow as a phone; nobody edits that arrangement.
constexpr int kNarrowest = 640;

QByteArray digest_of(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QStringList local_files(const QMimeData* data) {
    QStringList paths;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile()) paths.append(url.toLocalFile());
    }
    return paths;
}

// The control has numbers of its own for a missing file, a missing folder and a full disk.
FileError control_error(FileError error) {
    if (error.number == FaultNumber::kDiskFull) {
        error.number = FaultNumber::kWriteDiskFull;
    } else if (error.number == FaultNumber::kPathNotFound) {
        const bool folder_exists = QFileInfo(error.path).absoluteDir().exists();
        error.number = folder_exists ? FaultNumber::kFileNotFound : FaultNumber::kInvalidPath;
    }
    return error;
}

/// True for keys with which some desktops delete or let go in a line of text, and which are commands of the window
/// here.
bool belongs_to_window(const QKeyEvent& key) {
    return key.matches(QKeySequence::DeleteEndOfLine) || key.matches(QKeySequence::Deselect);
}

QString line_end_of(const QString& text) {
    if (text.contains(u"\r\n"_s)) return u"\r\n"_s;
    return text.contains(u'\n') || !text.contains(u'\r') ? u"\n"_s : u"\r"_s;
}

// The bytes of a page file that can be edited.
FileResult<QByteArray> read_page(const QString& path) {
    if (QFileInfo(path).size() > kLargestPage) return std::unexpected(FileError{FaultNumber::kTooLarge, path, {}});
    auto bytes = read_file(path);
    if (!bytes) return std::unexpected(control_error(bytes.error()));
    const FaultNumber of_bytes = fault_of_bytes(*bytes);
    const FaultNumber fault = of_bytes == FaultNumber::kNone ? fault_of_text(decode_text(*bytes).text) : of_bytes;
    if (fault != FaultNumber::kNone) return std::unexpected(FileError{fault, path, {}});
    return bytes;
}

SelectedElement element_from(const QJsonObject& json) {
    SelectedElement element;
    element.tag = json[u"tag"_s].toString();
    element.name = json[u"name"_s].toString();
    element.alt = json[u"alt"_s].toString();
    element.src = json[u"src"_s].toString();
    element.box =
        QRect(json[u"left"_s].toInt(), json[u"top"_s].toInt(), json[u"width"_s].toInt(), json[u"height"_s].toInt());
    element.z_index = json[u"zIndex"_s].toString();
    element.positioned = json[u"positioned"_s].toBool();
    element.locked = json[u"locked"_s].toBool();
    element.outer_html = json[u"outer"_s].toString();
    element.parent_tag = json[u"parentTag"_s].toString();
    element.parent_outer_html = json[u"parentOuter"_s].toString();
    return element;
}

}  // namespace

DHTMLEdit::DHTMLEdit(QWidget* parent) : QWidget(parent), view_(new QWebEngineView(this)), page_(new ScriptPage(view_)) {
    setObjectName(u"DHTMLEdit1"_s);
    view_->installEventFilter(this);
    view_->setPage(page_);
    view_->setMinimumWidth(kNarrowest);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    setFocusProxy(view_);

    // Queued: a question to the script must not be asked from within the engine's own call.
    connect(
        view_, &QWidget::customContextMenuRequested, this,
        [this](const QPoint& place) { emit contextMenuRequested(view_->mapToGlobal(place)); }, Qt::QueuedConnection);
    const auto tell = [this] {
        if (!tell_state_.isActive()) tell_state_.start(kTellStateAfter);
    };
    connect(page_, &ScriptPage::stateTold, this, tell, Qt::QueuedConnection);
    connect(
        page_, &ScriptPage::changeTold, this,
        [this, tell] {
            if (!keep_text_.isActive()) keep_text_.start(kKeepTextAfter);
            tell();
        },
        Qt::QueuedConnection);
    connect(page_, &ScriptPage::pasteAsked, this, &DHTMLEdit::paste, Qt::QueuedConnection);
    connect(
        page_, &QWebEnginePage::renderProcessTerminated, this, [this] { (void)revive(); }, Qt::QueuedConnection);
    tell_state_.setSingleShot(true);
    connect(&tell_state_, &QTimer::timeout, this, &DHTMLEdit::stateChanged);
    keep_text_.setSingleShot(true);
    connect(&keep_text_, &QTimer::timeout, this, [this] {
        page_->call_later(u"documentText.text"_s, [this](const QJsonValue& text) {
            if (text.isString()) known_text_ = text.toString();
        });
    });
    view_->setAcceptDrops(true);
}

DHTMLEdit::~DHTMLEdit() = default;

FileResult<void> DHTMLEdit::load_document(const QString& path) {
    const auto bytes = read_page(path);
    if (!bytes) return std::unexpected(bytes.error());
    const QString folder = QFileInfo(path).absolutePath();
    const QString before = text();
    keep_text_.stop();  // what it would keep now belongs to the page before
    if (!page_->start(QUrl::fromLocalFile(folder + u'/')) || !show_text(decode_text(*bytes).text)) {
        known_text_ = before;
        page_->forget();
        (void)revive();
        return std::unexpected(FileError{FaultNumber::kUnexpected, path, {}});
    }
    folder_ = folder;
    path_ = path;
    remember_file(*bytes);
    emit stateChanged();
    return {};
}

FileResult<void> DHTMLEdit::reload_document() {
    const auto bytes = read_page(path_);
    if (!bytes) return std::unexpected(bytes.error());
    if (!ask(u"documentText.replace"_s, {decode_text(*bytes).text}).toBool()) {
        return std::unexpected(FileError{FaultNumber::kUnexpected, path_, {}});
    }
    remember_file(*bytes);
    ask(u"history.markSaved"_s);
    emit stateChanged();
    return {};
}

void DHTMLEdit::remember_file(const QByteArray& bytes) {
    const TextFile file = decode_text(bytes);
    encoding_ = file.encoding;
    line_end_ = line_end_of(file.text);
    digest_ = digest_of(bytes);
}

FileResult<void> DHTMLEdit::save_document(const QString& path) {
    // Not text(): what was last known would do for showing, but may lack the last letters.
    const QJsonValue whole = ask(u"documentText.text"_s);
    if (!whole.isString()) return std::unexpected(FileError{FaultNumber::kUnexpected, path, {}});
    const QByteArray bytes = encode_text(with_line_ends(whole.toString()), encoding_);
    const auto written = write_file(path, bytes);
    if (!written) return std::unexpected(control_error(written.error()));
    path_ = path;
    digest_ = digest_of(bytes);
    ask(u"history.markSaved"_s);
    emit stateChanged();
    return {};
}

bool DHTMLEdit::changed_on_disk() const {
    if (path_.isEmpty()) return false;
    const auto bytes = read_file(path_);
    return !bytes || digest_of(*bytes) != digest_;
}

bool DHTMLEdit::show_text(const QString& text) {
    known_text_ = text;
    return page_->call(u"documentText.load"_s, {text}).toBool();
}

QString DHTMLEdit::with_line_ends(const QString& text) const {
    return line_end_ == u"\n"_s ? text : QString(text).replace(u'\n', line_end_);
}

bool DHTMLEdit::modified() {
    if (path_.isEmpty()) return false;
    // Without an answer it is safer to ask the person.
    return ask(u"history.modified"_s).toBool(true);
}

void DHTMLEdit::mark_modified() {
    ask(u"history.markModified"_s);
    emit stateChanged();
}

QString DHTMLEdit::text() {
    if (path_.isEmpty()) return {};
    const QJsonValue text = ask(u"documentText.text"_s);
    return text.isString() ? with_line_ends(text.toString()) : known_text_;
}

void DHTMLEdit::replace_text(const QString& html) {
    ask(u"documentText.replace"_s, {html});
}

void DHTMLEdit::paste_at_end(const QString& markup) {
    ask(u"documentText.pasteAtEnd"_s, {markup});
}

Selection DHTMLEdit::selection() {
    const QJsonObject json = ask(u"selection.describe"_s).toObject();
    Selection selection;
    selection.link_href = json[u"link"_s].toString();
    selection.colour = json[u"colour"_s].toString();
    const QString type = json[u"type"_s].toString();
    if (type == u"text"_s) {
        selection.type = SelectionType::kText;
        selection.text = json[u"text"_s].toString();
        selection.html = json[u"html"_s].toString();
        selection.parent_outer_html = json[u"parent"_s].toString();
    } else if (type == u"control"_s) {
        selection.type = SelectionType::kControl;
        selection.element = element_from(json[u"element"_s].toObject());
    }
    return selection;
}

bool DHTMLEdit::replace_selection(const QString& markup) {
    return ask(u"documentText.replaceSelection"_s, {markup}).toBool();
}

bool DHTMLEdit::replace_selected_element(const QString& markup) {
    return ask(u"documentText.replaceElement"_s, {markup}).toBool();
}

bool DHTMLEdit::replace_selection_parent(const QString& markup) {
    return ask(u"documentText.replaceParent"_s, {markup}).toBool();
}

bool DHTMLEdit::select_element(const QString& name) {
    return ask(u"documentText.selectElement"_s, {name}).toBool();
}

QList<PagePlace> DHTMLEdit::places() {
    QList<PagePlace> places;
    for (const QJsonValue place : ask(u"places.places"_s).toArray())
        places.append({place[u"name"_s].toString(), place[u"text"_s].toString(), place[u"heading"_s].toInt()});
    return places;
}

bool DHTMLEdit::link_to_place(int index, const QString& name) {
    return ask(u"places.linkTo"_s, {index, name}).toBool();
}

QString DHTMLEdit::place_name() {
    return ask(u"places.placeName"_s).toString();
}

bool DHTMLEdit::set_place_name(const QString& name) {
    return ask(u"places.setPlace"_s, {name}).toBool();
}

AddressShown DHTMLEdit::show_address(const QString& address, int number) {
    const QString shown = ask(u"addresses.show"_s, {address, number}).toString();
    return shown == u"shown"_s    ? AddressShown::kShown
           : shown == u"hidden"_s ? AddressShown::kHidden
                                  : AddressShown::kMissing;
}

CommandStatus DHTMLEdit::status(EditCommand command) {
    if (path_.isEmpty()) return CommandStatus::kDisabled;
    return static_cast<CommandStatus>(ask(u"commands.status"_s, {static_cast<int>(command)}).toInt());
}

bool DHTMLEdit::execute(EditCommand command, const QVariant& value) {
    if (path_.isEmpty()) return false;
    switch (command) {
        case EditCommand::kCopy:
            return copy();
        case EditCommand::kCut:
            return copy() && execute(EditCommand::kDelete);
        case EditCommand::kPaste:
            paste();
            return true;
        default:
            return ask(u"commands.execute"_s, {static_cast<int>(command), QJsonValue::fromVariant(value)}).toBool();
    }
}

bool DHTMLEdit::copy() {
    const QJsonObject copied = ask(u"clipboard.copied"_s).toObject();
    if (copied.isEmpty()) return false;
    auto* data = new QMimeData;
    data->setHtml(copied[u"html"_s].toString());
    data->setText(copied[u"text"_s].toString());
    QApplication::clipboard()->setMimeData(data);
    return true;
}

void DHTMLEdit::paste() {
    const QMimeData* data = QApplication::clipboard()->mimeData();
    if (!data || path_.isEmpty()) return;
    const QStringList files = local_files(data);
    if (!files.isEmpty()) {
        emit filesDropped(files);
    } else if (data->hasImage() && !data->hasText()) {
        emit picturePasted(qvariant_cast<QImage>(data->imageData()));
    } else if (data->hasHtml() || data->hasText()) {
        ask(u"clipboard.paste"_s, {data->html(), data->text()});
    }
}

void DHTMLEdit::paste_text() {
    const QString text = QApplication::clipboard()->text();
    if (!path_.isEmpty() && !text.isEmpty()) ask(u"clipboard.pasteText"_s, {text});
}

void DHTMLEdit::caret_to_start() {
    ask(u"documentText.caretToStart"_s);
}

void DHTMLEdit::keep_place() {
    ask(u"documentText.keepPlace"_s);
}

void DHTMLEdit::restore_place() {
    ask(u"documentText.restorePlace"_s);
}

void DHTMLEdit::take_focus() {
    // The engine hears of a focus only when it arrives; one that the view had before the page came does not count.
    QWidget* inside = view_->focusProxy() == nullptr ? view_ : view_->focusProxy();
    inside->clearFocus();
    inside->setFocus();
}

QJsonObject DHTMLEdit::state() {
    return path_.isEmpty() ? QJsonObject() : ask(u"state"_s).toObject();
}

QJsonValue DHTMLEdit::ask(const QString& function, const QJsonArray& arguments) {
    return revive() ? page_->call(function, arguments) : QJsonValue();
}

/// Puts the document back when the engine's process has gone. True when there is a document to ask.
bool DHTMLEdit::revive() {
    if (path_.isEmpty()) return false;
    if (page_->alive()) return true;
    if (reviving_) return false;
    const QScopedValueRollback<bool> guard(reviving_, true);
    if (!page_->start(QUrl::fromLocalFile(folder_ + u'/'))) return false;
    const QString kept = known_text_;
    const auto file = read_text_file(path_);
    page_->call(u"documentText.load"_s, {file ? file->text : kept});
    page_->call(u"documentText.replace"_s, {kept});
    emit restoredAfterCrash();
    emit stateChanged();
    return true;
}

bool DHTMLEdit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && belongs_to_window(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;  // else the engine keeps the key, and no menu hears of it
    }
    if (watched == view_ && event->type() == QEvent::ChildAdded) {
        QObject* engine_widget = static_cast<QChildEvent*>(event)->child();
        if (engine_widget->isWidgetType()) engine_widget->installEventFilter(this);
    }
    if (watched == view_ && (event->type() == QEvent::DragEnter || event->type() == QEvent::Drop)) {
        auto* drop = static_cast<QDropEvent*>(event);
        const QStringList files = local_files(drop->mimeData());
        if (!files.isEmpty()) {
            drop->acceptProposedAction();
            if (event->type() == QEvent::Drop) emit filesDropped(files);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace pondera
