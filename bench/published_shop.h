#pragma once

#include "base/roots.h"
#include "publish/commands/command_executor.h"
#include "publish/sending/publication.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// How long the parts of a publication took, and how many files went.
struct PublicationTime {
    qint64 preparing = 0;  ///< milliseconds for reading the Website, and for the copies that are sent
    qint64 on_line = 0;    ///< milliseconds for all that was asked of the server
    qsizetype files = 0;
    QString failure{};
};

/// A Website "Shop" of nine pages to one picture, and its way to a server as the publishing form goes it.
class PublishedShop {
  public:
    explicit PublishedShop(int files);

    /// Changes some of the pages, evenly spread.
    void change(int pages);
    [[nodiscard]] PublicationTime publish(const QString& host, bool tls, PublicationMode mode);
    /// Forgets what was published.
    void forget();

    /// The published files alone, as another program would be given them.
    [[nodiscard]] QString folder() const { return home_.path(u"base/Pondera/Shop"_s); }

  private:
    void put_page(int number, int version);

    const TestFolder home_;
    const Roots roots_{home_.path(u"base"_s)};
    int files_;
    int version_ = 0;
};

}  // namespace pondera
