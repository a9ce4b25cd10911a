#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include "base/steps.h"

namespace pondera {

/// Which of a Website's files are referred to, and where: by its pages (published or still being edited), its page
/// templates, and its scripts and style sheets. A file counts as used rather once too often: its name in any case, and
/// a bare name in a script for each of the media folders.
class FileUsage {
  public:
    /// Reads all of a Website. Stopped half-way or unable to read a file, it is incomplete.
    [[nodiscard]] static FileUsage of_website(const QString& website_folder, const Steps& steps = {});

    /// Adds what a page's text refers to, as the page under edit does in addition to its files.
    void add_page(const QString& page, const QString& text, const QString& website);

    /// Who refers to a file, by its path relative to the pages: display names of pages, names of other files. Each
    /// once, in alphabetical order.
    [[nodiscard]] QStringList users_of(const QString& file) const;

    /// False when it does not know of all users.
    [[nodiscard]] bool complete() const { return complete_; }

  private:
    void add_file(const QString& path, const QString& website_folder);
    void add_references(const QString& user, const QString& folder, const QStringList& addresses,
                        const QString& website);
    void add(const QString& file, const QString& user);
    [[nodiscard]] const QStringList& files_at(const QString& address, const QString& folder, const QString& website);

    QHash<QString, QStringList> files_;    // that an address of a folder can lead to
    QHash<QString, QSet<QString>> users_;  // by lower-case path
    bool complete_ = true;
};

}  // namespace pondera
