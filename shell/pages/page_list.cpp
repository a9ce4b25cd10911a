#include "shell/pages/page_list.h"

#include <QtWidgets>

#include "shell/pages/page_icons.h"
#include "shell/pages/page_order.h"
#include "site/page_name.h"
#include "workbench/plain_tip.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFileRole = Qt::UserRole;

}  // namespace

PageList::PageList(QWidget* parent)
    : QWidget(parent),
      files_(new QStandardItemModel(this)),
      shown_(new QSortFilterProxyModel(this)),
      filter_(new QLineEdit),
      list_(new QListView),
      nothing_(new QLabel) {
    filter_->setObjectName(u"txtFilter"_s);
    filter_->setPlaceholderText(u"Type a part of the name"_s);
    filter_->setAccessibleName(u"Filter"_s);
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, this, &PageList::filter);

    shown_->setSourceModel(files_);
    shown_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    list_->setObjectName(u"list"_s);
    list_->setAccessibleName(u"Pages"_s);
    list_->setModel(shown_);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setIconSize({18, 18});
    list_->setMinimumSize(400, 120);
    // The entry that has the focus must not look as if it were chosen.
    list_->setStyleSheet(
        u"QListView { outline: 0; } QListView::item { padding: 4px; } "
        "QListView::item:!selected { background: transparent; border: none; }"_s);
    list_->installEventFilter(this);
    connect(list_, &QListView::doubleClicked, this, &PageList::doubleClicked);

    nothing_->setObjectName(u"lblNothing"_s);
    nothing_->setProperty("note", true);
    nothing_->setTextFormat(Qt::PlainText);
    nothing_->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(filter_);
    layout->addWidget(list_, 1);
    layout->addWidget(nothing_);
    setFocusProxy(filter_);
    show_nothing_found();
}

void PageList::offer(QStringList pages, QStringList documents) {
    sort_as_people_count(pages);
    sort_as_people_count(documents);
    PageIcons icons;
    files_->clear();
    QList<QStandardItem*> entries;
    for (const QString& file : pages + documents) {
        entries += new QStandardItem(icons.of(file), page_list_display(file));
        entries.last()->setData(file, kFileRole);
        entries.last()->setToolTip(plain_tip(file));
    }
    files_->invisibleRootItem()->appendRows(entries);
    show_nothing_found();
}

QString PageList::choice() const {
    const QModelIndexList chosen = list_->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? QString() : chosen.first().data(kFileRole).toString();
}

void PageList::set_choice(const QString& file_name) {
    const QModelIndexList found =
        files_->match(files_->index(0, 0), kFileRole, file_name, 1, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty()) return;
    filter_->clear();
    choose_row(shown_->mapFromSource(found.first()).row());
}

void PageList::filter(const QString& words) {
    const QString before = choice();
    shown_->setFilterFixedString(words);
    // The view chooses a neighbour of what the filter took away.
    if (choice() != before) list_->selectionModel()->clear();
    if (!words.isEmpty() && shown_->rowCount() == 1) choose_row(0);
    list_->scrollTo(list_->currentIndex());
    show_nothing_found();
}

void PageList::show_nothing_found() {
    nothing_->setVisible(shown_->rowCount() == 0);
    nothing_->setText(files_->rowCount() == 0
                          ? u"There is no page to choose from."_s
                          : u"No name holds \"%1\". Esc shows all pages again."_s.arg(filter_->text()));
}

bool PageList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    return watched == filter_ ? filter_key(key) : list_key(key);
}

bool PageList::filter_key(int key) {
    if (key == Qt::Key_Escape && !filter_->text().isEmpty()) {
        filter_->clear();
        return true;
    }
    if ((key == Qt::Key_Down || key == Qt::Key_PageDown) && shown_->rowCount() > 0) {
        if (choice().isEmpty()) choose_row(0);
        list_->setFocus();
        return true;
    }
    return false;
}

/// The first arrow key chooses the entry that has the focus; without this it would be passed over.
bool PageList::list_key(int key) {
    if (!choice().isEmpty() || !list_->currentIndex().isValid()) return false;
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_Home) return false;
    choose_row(list_->currentIndex().row());
    return true;
}

void PageList::choose_row(int row) {
    list_->setCurrentIndex(shown_->index(row, 0));
    list_->scrollTo(list_->currentIndex());
}

}  // namespace pondera
