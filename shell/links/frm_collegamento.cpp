#include "shell/links/frm_collegamento.h"

#include <QtWidgets>

#include "elements/link_address.h"
#include "shell/command_actions.h"
#include "shell/pages/page_list.h"
#include "site/linkable_documents.h"
#include "site/page_references.h"
#include "site/website_listing.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kDocumentFolderSetting = u"Document Folder"_s;
constexpr qsizetype kLongestWords = 60;
constexpr qsizetype kIndent = 4;  // blanks before a heading, for each level above its own

QLabel* note(const QString& text) {
    auto* label = new QLabel(text);
    label->setProperty("note", true);
    label->setWordWrap(true);
    return label;
}

/// Words short enough for a line of the form.
QString shortened(const QString& words) {
    return words.size() > kLongestWords ? words.first(kLongestWords - 1) + u'…' : words;
}

/// What the link stands on, for the person.
QString about(const Selection& selection) {
    if (selection.element)
        return selection.element->tag == u"IMG" ? u"the selected picture"_s : u"the selected element"_s;
    const QString words = selection.text.simplified();
    return words.isEmpty() ? u"the link at the caret"_s : u"\"%1\""_s.arg(shortened(words));
}

/// Fields of a card, one below the other, beginning at its top.
QWidget* card_of(const QList<QWidget*>& fields, bool last_grows) {
    auto* card = new QWidget;
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (QWidget* field : fields) layout->addWidget(field, last_grows && field == fields.last() ? 1 : 0);
    if (!last_grows) layout->addStretch(1);
    return card;
}

QString document_filter() {
    return u"Documents (*.%1)"_s.arg(document_endings().join(u" *."_s));
}

}  // namespace

frm_collegamento::frm_collegamento(Workbench& workbench, const Selection& selection)
    : QDialog(workbench.window()),
      workbench_(workbench),
      href_(selection.link_href),
      kinds_(new QButtonGroup(this)),
      cards_(new QStackedWidget),
      pages_(new PageList),
      file_(new QLineEdit),
      address_(new QLineEdit),
      places_(new QListWidget) {
    setObjectName(u"frm_collegamento"_s);
    setWindowTitle(u"Link"_s);
    build(selection);
    show_link(href_);
}

void frm_collegamento::build(const Selection& selection) {
    auto* on = new QLabel(u"Link on %1"_s.arg(about(selection)));
    on->setObjectName(u"link_on"_s);
    on->setTextFormat(Qt::PlainText);
    auto* kinds = new QGridLayout;  // two by two, for narrow screens
    kinds->setHorizontalSpacing(28);
    kinds->setVerticalSpacing(8);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(on);
    layout->addLayout(kinds);

    add_card(kPageCard, u"link_to_page"_s, u"&Page or document"_s, page_card(), pages_);
    add_card(kFileCard, u"link_to_file"_s, u"&File from this computer"_s, file_card(), file_);
    add_card(kAddressCard, u"link_to_address"_s, u"&Web or e-mail address"_s, address_card(), address_);
    add_card(kPlaceCard, u"link_to_place"_s, u"P&lace on this page"_s, place_card(), places_);
    for (QAbstractButton* kind : kinds_->buttons()) {
        const int card = kinds_->id(kind);
        kinds->addWidget(kind, card / 2, card % 2, Qt::AlignLeft);
    }
    kinds->setColumnStretch(1, 1);
    layout->addWidget(cards_, 1);  // behind the kinds, for the Tab key too
    connect(kinds_, &QButtonGroup::idClicked, this, &frm_collegamento::show_card);

    auto* buttons = form_buttons(*this, [this] {
        workbench_.show_help({u"/_HELP/_6_Link Crea.htm"_s, u"Help - Link"_s});
    });
    layout->addWidget(buttons);
    if (!href_.isEmpty()) {
        auto* remove = buttons->addButton(u"&Remove Link"_s, QDialogButtonBox::ResetRole);
        remove->setObjectName(u"remove_link"_s);
        remove->setAutoDefault(false);  // Enter takes the choice, whatever has the focus
        connect(remove, &QPushButton::clicked, this, [this] { QDialog::accept(); });  // with no choice
        layout->insertWidget(1, note(u"Now it leads to %1"_s.arg(shortened(href_))));
    }
    resize(620, 480);
}

void frm_collegamento::add_card(Card card, const QString& name, const QString& caption, QWidget* content,
                                QWidget* first_field) {
    auto* kind = new QRadioButton(caption);
    kind->setObjectName(name);
    kinds_->addButton(kind, card);
    cards_->addWidget(content);
    first_fields_.append(first_field);
}

QWidget* frm_collegamento::page_card() {
    const QString folder = workbench_.website_folder();
    pages_->offer(list_pages(folder), list_linkable_documents(folder));
    connect(pages_, &PageList::doubleClicked, this, &frm_collegamento::accept);
    return card_of({pages_}, true);
}

QWidget* frm_collegamento::file_card() {
    file_->setObjectName(u"txtFile"_s);
    file_->setAccessibleName(u"File"_s);
    auto* choose = new QPushButton(u"&Choose..."_s);
    choose->setObjectName(u"choose_file"_s);
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &frm_collegamento::choose_file);
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(file_, 1);
    layout->addWidget(choose);
    return card_of(
        {line, note(u"A PDF, an office document, a picture, a sound, a film or a ZIP file. It is copied into "
                    "the Website; your own file stays where it is."_s)},
        false);
}

QWidget* frm_collegamento::address_card() {
    address_->setObjectName(u"txtAddress"_s);
    address_->setAccessibleName(u"Address"_s);
    address_->setPlaceholderText(u"www.example.org"_s);
    return card_of({address_, note(u"A page of the web (www.example.org), an e-mail address (ann@example.org) or a "
                                   "telephone number (+39 06 1234567)."_s)},
                   false);
}

QWidget* frm_collegamento::place_card() {
    places_->setObjectName(u"places"_s);
    places_->setAccessibleName(u"Places on this page"_s);
    places_->setStyleSheet(u"QListWidget::item { padding: 4px; }"_s);
    places_->setIconSize({18, 18});
    QPixmap no_icon(places_->iconSize());
    no_icon.fill(Qt::transparent);
    for (const PagePlace& place : workbench_.editor().places()) {
        const bool is_heading = place.heading > 0;
        const QString text = is_heading ? QString((place.heading - 1) * kIndent, QChar::Nbsp) + place.text
                                        : u"%1  ;  [%2]"_s.arg(place.name, place.text);
        auto* item = new QListWidgetItem(is_heading ? QIcon(no_icon) : icon_named(u"anchor"_s), text, places_);
        item->setData(Qt::UserRole, place.name);
    }
    connect(places_, &QListWidget::itemDoubleClicked, this, &frm_collegamento::accept);
    QList<QWidget*> fields{places_};
    if (places_->count() == 0)
        fields.prepend(
            note(u"This page has no headings and no anchors. Close this form, click where the link is to lead, "
                 "and choose Anchor in the Insert menu."_s));
    return card_of(fields, true);
}

void frm_collegamento::show_card(int card) {
    kinds_->button(card)->setChecked(true);
    cards_->setCurrentIndex(card);
    first_fields_[card]->setFocus();
}

/// Shows where a link leads now.
void frm_collegamento::show_link(const QString& href) {
    const AddressTarget target = resolve_address(href, workbench_.website());
    using Place = AddressTarget::Place;
    if (target.place == Place::kWebsite) pages_->set_choice(target.file);
    if (target.place == Place::kWeb) address_->setText(href);
    for (int row = 0; target.place == Place::kThisPage && row < places_->count(); ++row)
        if (places_->item(row)->data(Qt::UserRole) == target.anchor) places_->setCurrentRow(row);
    show_card(target.place == Place::kWeb ? kAddressCard : target.place == Place::kThisPage ? kPlaceCard : kPageCard);
}

void frm_collegamento::choose_file() {
    QSettings& settings = workbench_.settings();
    const auto file = workbench_.prompts().choose_file(
        {u"Select File"_s, settings.value(kDocumentFolderSetting).toString(), {document_filter(), u"All Files (*)"_s}});
    if (!file) return;
    settings.setValue(kDocumentFolderSetting, QFileInfo(*file).absolutePath());
    file_->setText(*file);
}

LinkChoice frm_collegamento::page_choice() const {
    // The same page again keeps the anchor of its link.
    const AddressTarget now = resolve_address(href_, workbench_.website());
    const bool same = now.place == AddressTarget::Place::kWebsite && now.file == pages_->choice();
    return {LinkChoice::Kind::kAddress, same ? href_ : address_of(pages_->choice())};
}

std::expected<LinkChoice, QString> frm_collegamento::choice_of_card() const {
    switch (cards_->currentIndex()) {
        case kPageCard:
            if (pages_->choice().isEmpty()) return std::unexpected(u"Select a page!"_s);
            return page_choice();
        case kFileCard:
            if (const auto refusal = refusal_of_document(file_->text())) return std::unexpected(*refusal);
            return LinkChoice{LinkChoice::Kind::kFile, file_->text()};
        case kAddressCard: {
            const auto address = address_from_typed(address_->text());
            if (!address) return std::unexpected(address.error());
            return LinkChoice{LinkChoice::Kind::kAddress, *address};
        }
        default:
            if (places_->selectedItems().isEmpty()) return std::unexpected(u"Select a place of the page."_s);
            return LinkChoice{LinkChoice::Kind::kPlace, {}, places_->currentRow()};
    }
}

void frm_collegamento::accept() {
    const auto choice = choice_of_card();
    if (!choice) {
        workbench_.prompts().tell(choice.error());
        first_fields_[cards_->currentIndex()]->setFocus();
        return;
    }
    choice_ = *choice;
    QDialog::accept();
}

}  // namespace pondera
