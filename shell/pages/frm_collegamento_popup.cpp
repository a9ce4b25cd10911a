#include "shell/pages/frm_collegamento_popup.h"

#include <QtWidgets>

#include "shell/pages/page_list.h"
#include "site/website_listing.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

QString mode_word(PageListMode mode) {
    return mode == PageListMode::kCollega ? u"COLLEGA"_s : u"CANCELLAZIONE"_s;
}

frm_collegamento_popup::frm_collegamento_popup(Workbench& workbench, PageListMode mode, const QString& caption,
                                               const Help& help)
    : QDialog(workbench.window()), workbench_(workbench), pages_(new PageList) {
    setObjectName(u"frm_collegamento_popup"_s);
    setProperty("mode", mode_word(mode));
    setWindowTitle(caption);
    const bool linking = mode == PageListMode::kCollega;
    const QString folder = workbench.website_folder();
    pages_->offer(list_pages(folder), linking ? list_documents(folder) : QStringList());
    connect(pages_, &PageList::doubleClicked, this, &frm_collegamento_popup::accept);
    auto* prompt = new QLabel(linking ? u"&Page or document to link to"_s : u"&Page to delete"_s);
    prompt->setBuddy(pages_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(prompt);
    layout->addWidget(pages_, 1);
    layout->addWidget(form_buttons(*this, [&workbench, help] { workbench.show_help(help); }));
    resize(460, 440);
    pages_->setFocus();
}

QString frm_collegamento_popup::choice() const {
    return pages_->choice();
}

void frm_collegamento_popup::accept() {
    if (!choice().isEmpty()) return QDialog::accept();
    workbench_.prompts().tell(u"Select a page!"_s);
    pages_->setFocus();
}

}  // namespace pondera
