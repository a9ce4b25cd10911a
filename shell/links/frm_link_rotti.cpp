#include "shell/links/frm_link_rotti.h"

#include <QtWidgets>

#include "shell/links/broken_links_command.h"
#include "site/page_name.h"
#include "workbench/plain_tip.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QString counted(qsizetype number, const QString& one, const QString& many) {
    return number == 1 ? u"1 "_s + one : u"%L1 "_s.arg(number) + many;
}

QString extent(const LinkCheck& check) {
    return u"%1 on %2"_s.arg(counted(check.addresses, u"link"_s, u"links"_s),
                             counted(check.pages, u"page"_s, u"pages"_s));
}

QString kind_text(ReferenceKind kind) {
    switch (kind) {
        case ReferenceKind::kLink:
            return u"Link"_s;
        case ReferenceKind::kPicture:
            return u"Picture"_s;
        case ReferenceKind::kMedia:
            return u"Sound or film"_s;
        case ReferenceKind::kStyleSheet:
            return u"Style sheet"_s;
        case ReferenceKind::kScript:
            return u"Script"_s;
        case ReferenceKind::kFrame:
            return u"Frame"_s;
    }
    return {};
}

QStringList row_of(const BrokenLink& link) {
    return {is_page_file(link.file) ? display_name(link.file) : link.file, kind_text(link.kind), link.address,
            link.reason};
}

}  // namespace

QString no_broken_links(const LinkCheck& check) {
    return u"There are no broken links.\nChecked: %1."_s.arg(extent(check));
}

frm_link_rotti::frm_link_rotti(Workbench& workbench, LinkCheck check,
                               std::function<std::optional<LinkCheck>()> check_again)
    : QDialog(workbench.window()),
      check_(std::move(check)),
      check_again_(std::move(check_again)),
      count_(new QLabel),
      table_(new QTableWidget(0, 4)) {
    setObjectName(u"frm_link_rotti"_s);
    setWindowTitle(u"Broken Links"_s);
    count_->setObjectName(u"count"_s);
    table_->setObjectName(u"broken_links"_s);
    table_->setHorizontalHeaderLabels({u"Page"_s, u"What"_s, u"Address"_s, u"Why"_s});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->setWordWrap(true);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->horizontalHeader()->setStretchLastSection(true);
    connect(table_, &QTableWidget::cellDoubleClicked, this, &QDialog::accept);

    auto* buttons = new QDialogButtonBox(this);
    go_ = buttons->addButton(u"&Go There"_s, QDialogButtonBox::AcceptRole);
    go_->setObjectName(u"OKButton"_s);
    go_->setDefault(true);
    auto* again = buttons->addButton(u"Check &Again"_s, QDialogButtonBox::ActionRole);
    again->setObjectName(u"check_again"_s);
    again->setAutoDefault(false);  // Enter goes there
    buttons->addButton(QDialogButtonBox::Close)->setObjectName(u"CancelButton"_s);
    buttons->addButton(QDialogButtonBox::Help)->setObjectName(u"HelpButton"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(again, &QPushButton::clicked, this, &frm_link_rotti::check_again);
    connect(buttons, &QDialogButtonBox::helpRequested, this,
            [&workbench] { workbench.show_help(broken_links_help()); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(count_);
    layout->addWidget(table_, 1);
    layout->addWidget(buttons);
    resize(900, 460);
    show_check();
    table_->setFocus();
}

const BrokenLink& frm_link_rotti::choice() const {
    return check_.broken.at(table_->item(table_->currentRow(), 0)->data(Qt::UserRole).toInt());
}

void frm_link_rotti::show_check() {
    const bool found = !check_.broken.isEmpty();
    count_->setText(found ? u"%1 nowhere, of %2."_s.arg(
                                counted(check_.broken.size(), u"address leads"_s, u"addresses lead"_s), extent(check_))
                          : no_broken_links(check_));
    table_->setSortingEnabled(false);
    table_->setRowCount(static_cast<int>(check_.broken.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const QStringList texts = row_of(check_.broken[row]);
        for (int column = 0; column < texts.size(); ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setData(Qt::UserRole, row);
            item->setToolTip(plain_tip(texts[column]));
            table_->setItem(row, column, item);
        }
    }
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table_->setSortingEnabled(true);
    for (const auto& [column, width] : {std::pair{0, 150}, {1, 90}, {2, 230}}) table_->setColumnWidth(column, width);
    table_->resizeRowsToContents();
    if (found) table_->setCurrentCell(0, 0);
    go_->setEnabled(found);
}

void frm_link_rotti::check_again() {
    auto check = check_again_();
    if (!check) return;
    check_ = std::move(*check);
    show_check();
    table_->setFocus();
}

}  // namespace pondera
