#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>

#include "base/text_file.h"
#include "site/page_group.h"

namespace pondera {

/// The names of pages that were moved, as links are to be found by them: quickly in bytes and texts, exactly by
/// address.
class MovedNames {
  public:
    /// `taken` are names that differ from a moved one in case only and have files of their own.
    MovedNames(const QList<PageMove>& moves, const QString& website, const QSet<QString>& taken = {});

    [[nodiscard]] bool are_none() const { return exact_.isEmpty(); }

    /// The new name of the page that an address leads to, empty when that has not moved.
    [[nodiscard]] QString new_name(const QString& address) const;

    /// False for the bytes of a file that certainly holds none of the names in any spelling.
    [[nodiscard]] bool may_be_in(QByteArrayView bytes) const;

    /// The places in a text where one of the names may stand, in ascending order.
    [[nodiscard]] QList<qsizetype> places_in(QStringView text) const;

    /// False when the encoding lacks a character of one of the new names.
    [[nodiscard]] bool fit(TextEncoding encoding) const;

  private:
    /// A piece of the names that every spelling leaves as it is, and the place of a sign in it that has no case.
    struct Piece {
        QByteArray text;
        qsizetype anchor = 0;
    };
    void make_pieces();

    QString website_;
    QSet<QString> taken_;
    QHash<QString, QString> exact_;
    QHash<QString, QString> any_case_;
    QList<Piece> pieces_;
};

}  // namespace pondera
