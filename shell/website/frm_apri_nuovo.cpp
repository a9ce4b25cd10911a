#include "shell/website/frm_apri_nuovo.h"

#include <QtWidgets>

#include "base/roots.h"
#include "site/page_name.h"
#include "site/website_listing.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QList<PickerEntry> entries_of(const QStringList& names) {
    QList<PickerEntry> entries;
    for (const QString& name : names) entries += {name, name, {}};
    return entries;
}

/// How many pages a Website has and when one of them was last changed.
QString about_website(const QString& folder) {
    const QStringList pages = list_pages(folder);
    QDateTime changed;
    for (const QString& page : pages)
        changed = std::max(changed, QFileInfo(QDir(folder).filePath(editing_copy_name(page))).lastModified());
    const QString count = pages.size() == 1 ? u"1 page"_s : u"%1 pages"_s.arg(pages.size());
    return u"%1, last changed %2"_s.arg(count, QLocale().toString(changed, QLocale::ShortFormat));
}

}  // namespace

Frm_Apri_nuovo::Frm_Apri_nuovo(Workbench& workbench)
    : Frm_Apri_nuovo(workbench, {.title = u"Website Selection"_s,
                                 .folder = workbench.roots().websites(),
                                 .names = list_websites(workbench.roots()),
                                 .help = {u"/_HELP/_6_File Open Proj.htm"_s, u"Help - Website Selection"_s}}) {
}

Frm_Apri_nuovo::Frm_Apri_nuovo(Workbench& workbench, const WebsiteList& list)
    : PickerForm(workbench,
                 {.form = u"Frm_Apri_nuovo"_s,
                  .title = list.title,
                  .prompt = u"&Select a Website"_s,
                  .nothing = u"There is no Website yet. Create the first one with New Website in the File menu."_s,
                  .refusal = u"Select a Progect!"_s,
                  .help = list.help,
                  .pictures = false},
                 entries_of(list.names)) {
    connect(&this->list(), &QListWidget::itemSelectionChanged, this, [this, folder = QDir(list.folder)] {
        show_about(choice().isEmpty() ? QString() : about_website(folder.filePath(choice())));
    });
}

}  // namespace pondera
