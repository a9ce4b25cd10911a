#include "shell/shell_workbench.h"

#include <QDir>
#include <QScopeGuard>
#include <QSettings>

#include "base/bulk_replacement.h"
#include "shell/browser_version.h"
#include "shell/frm_settings.h"
#include "shell/shell_commands.h"
#include "shell/website/recent_websites.h"
#include "site/page_name.h"
#include "workbench/prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

ShellWorkbench::ShellWorkbench(const Roots& roots, EditingControl& editor, Prompts& prompts, Progress& progress,
                               QSettings& settings)
    : roots_(roots),
      editor_(editor),
      prompts_(prompts),
      progress_(progress),
      settings_(settings),
      help_(roots),
      browser_version_(settings.value("Version"_L1, u"5.5"_s).toString()),
      open_page_(roots_, editor_, prompts_, progress_,
                 [this] { return browser_version_allows(browser_version_, prompts_); }),
      last_help_(window_help()) {
}

void ShellWorkbench::run(const Help& help, const std::function<void(Workbench&)>& command) {
    if (!help.page.isEmpty()) {
        const bool other_page = help.page != last_help_.page;
        last_help_ = help;
        if (other_page && automatic_help(settings_)) help_.show(help);
    }
    ++running_;
    const auto ended = qScopeGuard([this] {
        if (--running_ == 0) discarded_ = false;
        emit stateChanged();
    });
    command(*this);
}

QString ShellWorkbench::page_label() const {
    return open_page_.label();
}

void ShellWorkbench::mode_changed(bool browsing) {
    browsing_ = browsing;
    emit stateChanged();
}

QString ShellWorkbench::website_folder() const {
    return website_.isEmpty() ? QString() : roots_.website(website_);
}

bool ShellWorkbench::open_website(const QString& name) {
    if (!may_leave_page()) return false;
    undo_interrupted_replacement(roots_.website(name));
    if (!open_page_.NUOVA_VIDEATA(roots_.website(name), kHomePage)) return false;
    website_ = name;
    remember_website(settings_, name);
    emit websiteChanged();
    emit treeChanged();
    page_is_loaded();
    return true;
}

void ShellWorkbench::close_website() {
    website_.clear();
    open_page_.close();
    emit websiteChanged();
    emit treeChanged();
    emit stateChanged();
}

bool ShellWorkbench::load(const QString& name) {
    if (website_.isEmpty() || !may_leave_page() || !open_page_.NUOVA_VIDEATA(website_folder(), name)) return false;
    page_is_loaded();
    return true;
}

void ShellWorkbench::page_is_loaded() {
    discarded_ = false;
    last_help_ = window_help();
    emit pageLoaded();
    emit stateChanged();
}

bool ShellWorkbench::reload() {
    if (browsing_) {
        emit browserReloadRequested();
        return true;
    }
    return open_page_.reload();
}

bool ShellWorkbench::save() {
    return open_page_.Salvataggio_Doc_Cor();
}

bool ShellWorkbench::may_leave_page() {
    if (page().isEmpty() || discarded_ || !editor_.modified()) return true;
    const Answer answer =
        prompts_.message({u"The page \"%1\" has unsaved changes.\nDo you want to save them?"_s.arg(page_label()),
                          MessageIcon::kQuestion,
                          {Answer::kSave, Answer::kDiscard, Answer::kCancel},
                          {}});
    if (answer == Answer::kSave) return save();
    if (answer == Answer::kDiscard) give_up_changes();
    return answer == Answer::kDiscard;
}

void ShellWorkbench::give_up_changes() {
    discarded_ = running_ > 0;
}

void ShellWorkbench::refresh_tree() {
    emit treeChanged();
}

void ShellWorkbench::show_help(const Help& help) {
    if (!help_.show(help.page.isEmpty() ? last_help_ : help)) {
        prompts_.tell(u"The help viewer cannot be started:\n%1"_s.arg(help_.program()));
    }
}

void ShellWorkbench::set_browsing(bool on) {
    if (on != browsing_) emit modeRequested(on);
}

void ShellWorkbench::quit() {
    emit quitRequested();
}

}  // namespace pondera
