#pragma once

#include <QHash>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <optional>

#include "site/external_folder.h"
#include "site/page_references.h"

namespace pondera {

/// `text` with its addresses replaced by what `replacement` gives for them; nullopt leaves one as it stands.
[[nodiscard]] QString with_replaced_addresses(
    const QString& text, const QList<PageReference>& references,
    const std::function<std::optional<QString>(const PageReference&)>& replacement);

/// The addresses in the text of a style sheet.
[[nodiscard]] QList<PageReference> style_references(const QString& style);

/// The address, seen from the folder of pictures, where scripts and styles lie too, of a file that the pages address
/// as `path`.
[[nodiscard]] QString address_from_styles(const QString& path);

/// The anchor of an address with its "#", safe in any place of a page; empty when it has none.
[[nodiscard]] QString anchor_of(const QString& address);

/// Brings the files that a web page from outside shows into a Website: pictures, style sheets with what they show,
/// scripts, fonts, films and sounds. Only files with an ending of such kinds come in, so that none of them is ever run
/// by a server; what a browser saved without one gets it. A page brings 500 files at most.
class ExternalFiles {
  public:
    ExternalFiles(const ExternalFolder& folder, QString website_folder);

    /// Brings the file that an address in the page (or in a file of `subfolder`) leads to and gives its path relative
    /// to the Website's pages. nullopt when the address leads elsewhere, and when it could not be brought, which is
    /// noted.
    [[nodiscard]] std::optional<QString> bring(const QString& address, ReferenceKind kind,
                                               const QString& subfolder = {});

    /// Makes a text of the page (a script or style) a file of its own in the folder of pictures; empty when it failed.
    [[nodiscard]] QString bring_text(const QByteArray& text, const QString& name);

    /// The addresses of what could not be brought, each once.
    [[nodiscard]] QStringList left_out() const;

  private:
    QString brought(const QString& file, ReferenceKind kind);
    QString bring_style(const QString& file, const QString& name);
    QString bring_as(const QString& file, const QString& name);
    [[nodiscard]] QString name_for(const QString& file, ReferenceKind kind) const;

    const ExternalFolder& folder_;
    QString website_folder_;
    QTemporaryDir renamed_;  // files under the names that they get
    QHash<QString, QString> brought_;
    QStringList left_out_;
    qsizetype texts_ = 0;
};

}  // namespace pondera
