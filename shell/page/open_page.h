#pragma once

#include <QString>

#include <functional>

#include "base/file_error.h"
#include "base/roots.h"
#include "site/page_kind.h"
#include "workbench/editing_control.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"

namespace pondera {

/// The page under edit: which one it is, and its way between disk and editing control. The editing control only ever
/// holds the page's editing copy; a save writes that and then makes the published page from it. Every fault is shown to
/// the person and leaves the page in the editor, and what another program wrote is never overwritten unasked.
class OpenPage {
  public:
    /// `may_convert` is asked before a page is shown and before each conversion into the published page; it tells the
    /// person why not.
    OpenPage(const Roots& roots, EditingControl& editor, Prompts& prompts, Progress& progress,
             std::function<bool()> may_convert);

    /// Loads a page of the Website in `folder` by its published name. A page without an editing copy gets one from its
    /// published page. False when it failed; the page before stays open then.
    bool NUOVA_VIDEATA(const QString& folder, const QString& name);

    /// Saves the editing copy and writes the published page. False when one of them could not be written or the person
    /// stopped it.
    bool Salvataggio_Doc_Cor();

    /// Saves the document to a path; an empty path does nothing and is no failure.
    bool salva_file(const QString& path);

    /// Takes the editing copy's text from disk into the editing control, as one step that can be undone.
    bool reload();

    /// Forgets the page.
    void close();

    [[nodiscard]] const QString& folder() const { return folder_; }  ///< of the Website, native; empty without a page
    [[nodiscard]] const QString& page() const { return page_; }      ///< published file name, empty without a page
    [[nodiscard]] PageKind kind() const;
    [[nodiscard]] QString label() const;  ///< as the status bar shows it

  private:
    FileResult<void> load(const QString& folder, const QString& name);
    FileResult<void> make_editing_copy(const QString& folder, const QString& page);
    bool write_published_page();
    bool may_overwrite();
    [[nodiscard]] bool changed_by_another_program() const;
    void show_save_fault(const FileError& error);

    const Roots& roots_;
    EditingControl& editor_;
    Prompts& prompts_;
    Progress& progress_;
    std::function<bool()> may_convert_;
    QString folder_;
    QString page_;
};

}  // namespace pondera
