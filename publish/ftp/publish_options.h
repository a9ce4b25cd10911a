#pragma once

#include <QGroupBox>

#include "publish/sending/publication.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pondera {

/// What the person decides about a publication, and the button that starts it, `cmdSel`.
class PublishOptions : public QGroupBox {
    Q_OBJECT

  public:
    explicit PublishOptions(QWidget* parent = nullptr);

    [[nodiscard]] PublicationMode mode() const;
    void choose_partial();
    [[nodiscard]] bool remove_deleted() const;
    [[nodiscard]] QString address() const;
    void set_address(const QString& address);
    /// Whether the person has typed an address since one was set.
    [[nodiscard]] bool has_typed_address() const;
    [[nodiscard]] QPushButton& button() const { return *publish_; }

  signals:
    void PublishAsked();

  private:
    QRadioButton* partial_;
    QRadioButton* total_;
    QCheckBox* remove_;
    QLineEdit* address_;
    QPushButton* publish_;
};

}  // namespace pondera
