#pragma once

#include <QComboBox>

#include <functional>

namespace pondera {

/// A list whose entries may change while the form is open: it is filled anew whenever it opens.
class RefilledBox : public QComboBox {
  public:
    /// `fill` puts the entries of the moment into the box, and keeps the choice.
    explicit RefilledBox(std::function<void()> fill) : fill_(std::move(fill)) {}
    void showPopup() override {
        fill_();
        QComboBox::showPopup();
    }

  private:
    std::function<void()> fill_;
};

}  // namespace pondera
