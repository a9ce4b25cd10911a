#include "shell/page/unpublished_pages.h"

#include <QDir>

#include "base/text_file.h"
#include "elements/published_page.h"
#include "shell/page/page_expansions.h"
#include "site/page_name.h"
#include "site/published_files.h"

namespace pondera {

FileResult<void> publish_unpublished_pages(const Roots& roots, const QString& website) {
    const QDir folder(roots.website(website));
    for (const QString& page : unpublished_pages(folder.path())) {
        const auto copy = read_text_file(folder.filePath(editing_copy_name(page)));
        if (!copy) return std::unexpected(copy.error());
        const PublishedPage published = convert_page(
            copy->text, {.roots = roots, .website = website, .expansions = page_expansions(), .progress = {}});
        if (auto written = write_text_file(folder.filePath(page), published.text, copy->encoding); !written)
            return written;
    }
    return {};
}

}  // namespace pondera
