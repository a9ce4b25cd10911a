#pragma once

#include <QString>

#include "site/page_kind.h"
#include "workbench/command.h"
#include "workbench/popup_size.h"

class QSettings;
class QWidget;

namespace pondera {

class EditingControl;
class Progress;
class Prompts;
class Roots;

/// What a command gets to work with: the folders, the open Website and page, the editing control, the person, the
/// progress bar, and the operations that every command shares. The shell implements it; a command keeps no reference to
/// it.
class Workbench {
  public:
    virtual ~Workbench() = default;

    [[nodiscard]] virtual const Roots& roots() const = 0;
    virtual EditingControl& editor() = 0;
    virtual Prompts& prompts() = 0;
    virtual Progress& progress() = 0;
    virtual QSettings& settings() = 0;  ///< of this user, with the group "Parametri" open

    /// The window that dialogs are children of; null in tests without a window.
    virtual QWidget* window() = 0;

    [[nodiscard]] virtual QString website() const = 0;         ///< name of the open Website, empty when none is open
    [[nodiscard]] virtual QString website_folder() const = 0;  ///< its folder, native, without closing separator
    [[nodiscard]] virtual QString page() const = 0;  ///< published file name of the page under edit, empty when none
    [[nodiscard]] virtual PageKind page_kind() const = 0;
    [[nodiscard]] virtual bool browsing() const = 0;  ///< true in browse mode

    /// The window size recorded for popups; it lives as long as the program.
    virtual PopupSize& popup_size() = 0;

    /// Makes a Website current and loads its home page; asks about unsaved changes first. False when the person refused
    /// or it failed (reported).
    virtual bool open_website(const QString& name) = 0;

    /// Returns to the state without a Website. Unsaved changes are not asked about.
    virtual void close_website() = 0;

    /// Loads a page of the open Website by its published name (NUOVA_VIDEATA); asks about unsaved changes first.
    /// Failures are reported.
    virtual bool load(const QString& name) = 0;

    /// Takes the current page's editing copy from disk into the editor again, as one step that can be undone.
    virtual bool reload() = 0;

    /// Saves the page under edit and writes its published page (Salvataggio_Doc_Cor). Failures are reported and leave
    /// it unsaved.
    virtual bool save() = 0;

    /// Asks "save, discard or cancel" when there are unsaved changes; true when the command may go on.
    virtual bool may_leave_page() = 0;

    /// Gives up the unsaved changes of the page under edit: the running command is not asked about them any more.
    virtual void give_up_changes() = 0;

    /// Lists the Website's files anew (site tree and whatever shows pages).
    virtual void refresh_tree() = 0;

    /// Opens a help page in the help viewer.
    virtual void show_help(const Help& help) = 0;

    /// Switches between editing and viewing the page as a visitor sees it.
    virtual void set_browsing(bool on) = 0;

    /// Closes the main window (asking about unsaved changes) and ends the program.
    virtual void quit() = 0;
};

}  // namespace pondera
