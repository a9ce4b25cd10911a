#pragma once

#include <QDialog>

#include <expected>

#include "workbench/editing_control.h"

class QAbstractButton;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace pondera {

class PageList;
class Workbench;

/// Where a link is to lead.
struct LinkChoice {
    enum class Kind {
        kNone,     ///< the link is to be removed
        kAddress,  ///< `value` is the address as it is written into the page
        kFile,     ///< `value` is the path of a file of this computer
        kPlace,    ///< `place` is the index of a place of the page under edit
    };
    Kind kind = Kind::kNone;
    QString value{};
    int place = -1;
};

/// Asks where a link is to lead: to a page or document of the Website, a file of this computer, an address of the web
/// or of a person, or a place of the page under edit. Opened on a link it shows where that leads and can remove it.
class frm_collegamento : public QDialog {
    Q_OBJECT

  public:
    /// `selection` is what the link is to stand on.
    frm_collegamento(Workbench& workbench, const Selection& selection);

    /// What was chosen, after the form was accepted.
    [[nodiscard]] const LinkChoice& choice() const { return choice_; }

    void accept() override;

  private:
    enum Card { kPageCard, kFileCard, kAddressCard, kPlaceCard };

    QWidget* page_card();
    QWidget* file_card();
    QWidget* address_card();
    QWidget* place_card();
    void build(const Selection& selection);
    void add_card(Card card, const QString& name, const QString& caption, QWidget* content, QWidget* first_field);
    void show_card(int card);
    void show_link(const QString& href);
    void choose_file();

    [[nodiscard]] std::expected<LinkChoice, QString> choice_of_card() const;
    [[nodiscard]] LinkChoice page_choice() const;

    Workbench& workbench_;
    QString href_;  ///< of the link that is changed; empty for a new one
    QButtonGroup* kinds_;
    QStackedWidget* cards_;
    QList<QWidget*> first_fields_;
    PageList* pages_;
    QLineEdit* file_;
    QLineEdit* address_;
    QListWidget* places_;
    LinkChoice choice_;
};

}  // namespace pondera
