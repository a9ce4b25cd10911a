#pragma once

#include <QList>
#include <QString>

namespace pondera {

/// What an address in a page is for.
enum class ReferenceKind { kLink, kPicture, kMedia, kStyleSheet, kScript, kFrame };

/// An address in a page's text.
struct PageReference {
    qsizetype begin = 0;  ///< where it stands in the text, as written: without its quotes
    qsizetype end = 0;
    QString address;  ///< what it says: character references resolved, percent-encoding as it is
    ReferenceKind kind = ReferenceKind::kLink;
};

/// The addresses in a page's text, in their order: in the attributes that hold addresses, in styles ("url(...)"), and
/// in the scripts of pages, of handlers and of "javascript:" links, where a quoted string that could be the address of
/// a file counts ("esempio('_x_Map.htm')"). Comments hold none.
[[nodiscard]] QList<PageReference> page_references(const QString& text);

/// Those of them that stand in a tag, script or style that holds one of `places` (in ascending order). Where few do, it
/// takes a fraction of the time.
[[nodiscard]] QList<PageReference> page_references_at(const QString& text, const QList<qsizetype>& places);

/// The addresses in the text of a script or settings file: quoted strings and whole values ("key = _4_Trips.htm") that
/// could be the address of a file.
[[nodiscard]] QList<PageReference> script_references(const QString& text);

/// Where an address leads.
struct AddressTarget {
    enum class Place {
        kNowhere,   ///< empty, "#", "javascript:"
        kThisPage,  ///< an anchor of the page itself
        kWebsite,   ///< a file of the Website
        kWeb,       ///< an address with a scheme (http, mailto, tel), which is not looked at further
        kOutside,   ///< a file on this computer that is not in the Website: no visitor can reach it
    };
    Place place = Place::kNowhere;
    /// For kWebsite: the file's path in the Website, decoded, without editing mark, "/" between folders. That of a
    /// folder ends with "/"; the Website's own folder is its home page.
    QString file;
    QString anchor;  ///< decoded, without "#"
};

/// Resolves an address that stands in a page of the Website named `website`. The Website's own spellings
/// ("../NAME/x", "§_4_Trips.htm", "media\img\x.jpg", "./x") count as what they mean.
[[nodiscard]] AddressTarget resolve_address(const QString& address, const QString& website);

/// The address of a page or file of the Website as it is written into a page: percent-encoded where an address needs
/// that, letters as they are.
[[nodiscard]] QString address_of(const QString& file);

}  // namespace pondera
