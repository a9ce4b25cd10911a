#pragma once

#include <QString>

#include <memory>

#include "player/setup/setup_screen.h"

class QProgressDialog;

namespace pondera {

/// The setup programs' windows: boxes that ask and tell, and a bar with a cancel button while files are copied.
class SetupWindow : public SetupScreen {
  public:
    explicit SetupWindow(QString title);
    ~SetupWindow() override;

    bool ask(const char* text, const char* yes, const char* no) override;
    void tell(const char* text) override;
    bool insert_disc(const char* text, const char* picture) override;
    bool advance(int done, int total) override;

  private:
    bool run_box(const QString& name, const QString& text, const QString& yes, const QString& no,
                 const QString& picture);

    QString title_;
    std::unique_ptr<QProgressDialog> progress_;
};

}  // namespace pondera
