#include "publish/ftp/frm_rifiutati.h"

#include <QtWidgets>

#include "publish/ftp/field_pieces.h"
#include "publish/ftp/plain_words.h"
#include "workbench/plain_tip.h"

using namespace Qt::StringLiterals;

namespace pondera {

Frm_Rifiutati::Frm_Rifiutati(const QString& what, const QList<RefusedFile>& files, QWidget* parent) : QDialog(parent) {
    setObjectName(u"Frm_Rifiutati"_s);
    setWindowTitle(u"Refused by the Server"_s);
    auto* list = new QTreeWidget;
    list->setObjectName(u"list"_s);
    list->setHeaderLabels({u"File"_s, u"What the server says"_s});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    for (const RefusedFile& file : files) {
        auto* item = new QTreeWidgetItem(list, {file.path, brief(file.reply)});
        item->setToolTip(0, plain_tip(file.path));
        item->setToolTip(1, plain_tip(file.reply));
    }
    constexpr int kFileWidth = 240;
    list->setColumnWidth(0, kFileWidth);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setObjectName(u"CancelButton"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    auto* label = new QLabel(what);
    label->setWordWrap(true);
    layout->addWidget(label);
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
    resize(620, 340);
}

}  // namespace pondera
