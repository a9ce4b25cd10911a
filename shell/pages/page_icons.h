#pragma once

#include <QIcon>
#include <QMap>
#include <QString>

namespace pondera {

/// The small pictures that tell pages of different kinds apart. Each is made once.
class PageIcons {
  public:
    /// The icon of a page or document, by its file name.
    [[nodiscard]] const QIcon& of(const QString& file_name);

  private:
    QMap<QString, QIcon> icons_;
};

}  // namespace pondera
