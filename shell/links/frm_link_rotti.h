#pragma once

#include <QDialog>

#include <functional>
#include <optional>

#include "site/broken_links.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace pondera {

class Workbench;

/// The sentence about a check that found nothing broken.
[[nodiscard]] QString no_broken_links(const LinkCheck& check);

/// Lists broken links in a table that can be sorted. It closes with the one to go to; the check can be made again.
class frm_link_rotti : public QDialog {
    Q_OBJECT

  public:
    /// `check_again` gives nothing when the person stopped it.
    frm_link_rotti(Workbench& workbench, LinkCheck check, std::function<std::optional<LinkCheck>()> check_again);

    /// The link to go to, after the form was accepted.
    [[nodiscard]] const BrokenLink& choice() const;

  private:
    void show_check();
    void check_again();

    LinkCheck check_;
    std::function<std::optional<LinkCheck>()> check_again_;
    QLabel* count_;
    QTableWidget* table_;
    QPushButton* go_;
};

}  // namespace pondera
