#pragma once

#include <QDialog>

#include "workbench/command.h"

namespace pondera {

class PageList;
class Workbench;

/// What a page is chosen for.
enum class PageListMode {
    kCollega,        ///< to link to it: documents are offered too
    kCancellazione,  ///< to delete it
};

/// The word of a mode, "COLLEGA" or "CANCELLAZIONE"; the form has it as its property "mode".
[[nodiscard]] QString mode_word(PageListMode mode);

/// The page list as a form: one of the open Website's pages is chosen, by a double click or by OK.
class frm_collegamento_popup : public QDialog {
    Q_OBJECT

  public:
    /// Caption and help are those of the command that asks.
    frm_collegamento_popup(Workbench& workbench, PageListMode mode, const QString& caption, const Help& help);

    /// The published file name of the page, or the file name of the document, that is chosen.
    [[nodiscard]] QString choice() const;

    void accept() override;

  private:
    Workbench& workbench_;
    PageList* pages_;
};

}  // namespace pondera
