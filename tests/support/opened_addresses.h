#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

#include "tests/support/qt_text.h"

namespace pondera {

/// Takes the addresses that would go to the system's programs.
class OpenedAddresses : public QObject {
    Q_OBJECT

  public:
    OpenedAddresses() {
        for (const QString& scheme : {u"https"_s, u"mailto"_s, u"file"_s})
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }

    QList<QUrl> addresses;

  public slots:
    void open(const QUrl& url) { addresses.append(url); }
};

}  // namespace pondera
