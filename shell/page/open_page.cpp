#include "shell/page/open_page.h"

#include <QDir>

#include "base/text_file.h"
#include "elements/published_page.h"
#include "shell/page/page_expansions.h"
#include "shell/page/page_faults.h"
#include "shell/page/page_search.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kConversionSteps = 100;

QString path_in(const QString& folder, const QString& file) {
    return QDir(folder).filePath(file);
}

}  // namespace

OpenPage::OpenPage(const Roots& roots, EditingControl& editor, Prompts& prompts, Progress& progress,
                   std::function<bool()> may_convert)
    : roots_(roots), editor_(editor), prompts_(prompts), progress_(progress), may_convert_(std::move(may_convert)) {
}

/// Loads a page into the editing control.
bool OpenPage::NUOVA_VIDEATA(const QString& folder, const QString& name) {
    if (!may_convert_()) return false;
    const auto loaded = load(folder, name);
    if (!loaded) prompts_.tell(load_fault_message(loaded.error().number), MessageIcon::kCritical);
    return loaded.has_value();
}

FileResult<void> OpenPage::load(const QString& folder, const QString& name) {
    if (name.contains(u'/') || name.contains(u'\\'))
        return std::unexpected(FileError{FaultNumber::kInvalidPath, name, {}});

    const auto found = find_editing_copy(folder, name);
    const QString copy = found.value_or(editing_copy_name(page_to_load(name)));
    if (!found) {
        if (const auto made = make_editing_copy(folder, page_to_load(name)); !made) return made;
    }
    const auto loaded = editor_.load_document(path_in(folder, copy));
    if (!loaded) {
        if (!found) QFile::remove(path_in(folder, copy));
        return loaded;
    }
    folder_ = QDir::toNativeSeparators(QDir(folder).absolutePath());
    page_ = published_name(copy);
    editor_.caret_to_start();
    return {};
}

FileResult<void> OpenPage::make_editing_copy(const QString& folder, const QString& page) {
    const QString published = path_in(folder, page);
    if (!QDir(folder).exists()) return std::unexpected(FileError{FaultNumber::kInvalidPath, folder, {}});
    if (!QFileInfo::exists(published)) return std::unexpected(FileError{FaultNumber::kFileNotFound, published, {}});
    const auto bytes = read_file(published);
    return bytes ? write_file(path_in(folder, editing_copy_name(page)), *bytes) : std::unexpected(bytes.error());
}

/// Saves the page under edit and converts it into its published page.
bool OpenPage::Salvataggio_Doc_Cor() {
    if (page_.isEmpty() || !may_overwrite()) return false;
    {
        const ProgressRun wait(progress_, u"Wait"_s, {}, 0);
        if (!salva_file(editor_.document_path())) return false;
    }
    if (may_convert_()) return write_published_page();
    editor_.mark_modified();
    return true;
}

/// Saves the document to a path.
bool OpenPage::salva_file(const QString& path) {
    if (path.isEmpty()) return true;
    const auto saved = editor_.save_document(path);
    if (!saved) show_save_fault(saved.error());
    editor_.caret_to_start();
    return saved.has_value();
}

bool OpenPage::write_published_page() {
    ProgressRun run(progress_, u"Save of page"_s, u"in progress..."_s, kConversionSteps);
    const auto copy = read_text_file(editor_.document_path());
    if (!copy) {
        show_save_fault(copy.error());
        return false;
    }
    const PublishedPage published = convert_page(
        copy->text, {.roots = roots_,
                     .website = QDir(folder_).dirName(),
                     .expansions = page_expansions(),
                     .progress = [&run](int done, int total) { run.advance(done * kConversionSteps / total); }});
    const auto written = write_text_file(path_in(folder_, page_), published.text, copy->encoding);
    if (!written) {
        show_save_fault(written.error());
        editor_.mark_modified();
    }
    for (const QString& report : published.reports) prompts_.tell(report);
    return written.has_value();
}

bool OpenPage::may_overwrite() {
    if (!changed_by_another_program()) return true;
    const QString question =
        u"The page \"%1\" has been changed by another program since it was loaded.\n\n"
        "Load the changed page (Undo brings yours back) or overwrite it with yours?"_s;
    switch (prompts_.message({question.arg(display_name(page_)),
                              MessageIcon::kExclamation,
                              {Answer::kReload, Answer::kOverwrite, Answer::kCancel},
                              {}})) {
        case Answer::kOverwrite:
            return true;
        case Answer::kReload:
            reload();
            return false;
        default:
            return false;
    }
}

bool OpenPage::changed_by_another_program() const {
    return QFileInfo::exists(editor_.document_path()) && editor_.changed_on_disk();
}

void OpenPage::show_save_fault(const FileError& error) {
    QString message = save_fault_message(error.number);
    if (!QDir(folder_).exists())
        message += u"\n\nThe folder %1 does not exist any more. The page is still here, unsaved."_s.arg(folder_);
    prompts_.tell(message, MessageIcon::kCritical);
}

bool OpenPage::reload() {
    if (page_.isEmpty()) return false;
    const auto reloaded = editor_.reload_document();
    if (!reloaded) prompts_.tell(load_fault_message(reloaded.error().number), MessageIcon::kCritical);
    return reloaded.has_value();
}

void OpenPage::close() {
    folder_.clear();
    page_.clear();
}

PageKind OpenPage::kind() const {
    return page_kind(page_);
}

QString OpenPage::label() const {
    return status_label(page_);
}

}  // namespace pondera
