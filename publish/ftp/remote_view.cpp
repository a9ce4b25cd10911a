#include "publish/ftp/remote_view.h"

#include <QtWidgets>

#include "publish/ftp/field_pieces.h"
#include "workbench/plain_tip.h"

using namespace Qt::StringLiterals;

namespace pondera {

RemoteView::RemoteView(QWidget* parent)
    : QGroupBox(u"On the server"_s, parent), folder_(narrow_label(u"lblRemoto"_s)), names_(new QListWidget) {
    names_->setObjectName(u"Remoto"_s);
    names_->setUniformItemSizes(true);
    names_->setAccessibleName(u"Files on the server"_s);
    names_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    names_->setMinimumHeight(names_->fontMetrics().lineSpacing() * 4);
    folder_->setProperty("note", true);
    auto* refresh = plain_button(u"cmdUpdate"_s, u"&Refresh"_s);
    auto* file = plain_button(u"cmdFile"_s, u"Send a &file..."_s);
    auto* empty = plain_button(u"cmdDesel"_s, u"&Empty the server..."_s);
    refresh->setToolTip(u"Looks again what is in this folder of the server"_s);
    file->setToolTip(u"Sends one file of the Website"_s);
    empty->setToolTip(u"Deletes everything in the Website's folder on the server"_s);
    connect(refresh, &QPushButton::clicked, this, &RemoteView::RefreshAsked);
    connect(file, &QPushButton::clicked, this, &RemoteView::FileAsked);
    connect(empty, &QPushButton::clicked, this, &RemoteView::EmptyingAsked);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(refresh);
    buttons->addWidget(file);
    buttons->addStretch();
    buttons->addWidget(empty);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(folder_);
    layout->addWidget(names_, 1);
    layout->addLayout(buttons);
}

void RemoteView::show_names(const QString& folder, const QStringList& names) {
    const QString count = u"  (%L1 shown)"_s.arg(names.size());
    const int room = folder_->width() - folder_->fontMetrics().horizontalAdvance(count);
    folder_->setText(folder.isEmpty() ? QString()
                                      : folder_->fontMetrics().elidedText(folder, Qt::ElideLeft, room) + count);
    folder_->setToolTip(plain_tip(folder));
    names_->clear();
    names_->addItems(names);
    // The home page is what one looks for first.
    const QList<QListWidgetItem*> home = names_->findItems(u"index.htm"_s, Qt::MatchContains);
    if (!home.isEmpty()) names_->setCurrentItem(home.constFirst());
}

}  // namespace pondera
