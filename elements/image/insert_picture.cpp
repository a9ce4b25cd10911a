#include "elements/image/insert_picture.h"

#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include "elements/image/picture_probe.h"
#include "elements/insertion.h"
#include "site/media_files.h"
#include "workbench/editing_control.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPageWidth = 980;  // the width of the interface models' pages

QString copy_fault_message(const FileError& error) {
    return u"The picture could not be copied into the Website. "_s + fault_sentence(error);
}

/// The size to write for a picture, invalid for its own size; nothing when the person wants none of it.
std::optional<QSize> wanted_size(Workbench& workbench, const QSize& picture) {
    const bool is_popup = is_popup_page(workbench.page());
    const int page_width = is_popup ? workbench.popup_size().width.toInt() : kPageWidth;
    if (picture.width() <= page_width) return QSize();

    const QSize fitting = size_that_fits(picture, page_width - 2 * default_edge(workbench.page()));
    const QString question =
        u"The picture is %1 pixels wide, wider than the page.\n\nInsert it %2 pixels wide, so that it fits?"_s;
    switch (workbench.prompts().message({question.arg(picture.width()).arg(fitting.width()),
                                         MessageIcon::kQuestion,
                                         {Answer::kYes, Answer::kNo, Answer::kCancel},
                                         {}})) {
        case Answer::kYes:
            return fitting;
        case Answer::kNo:
            return QSize();
        default:
            return std::nullopt;
    }
}

}  // namespace

void insert_picture(Workbench& workbench, const QString& path, PictureRole role) {
    if (workbench.page().isEmpty() || workbench.browsing()) return;
    const auto picture = probe_picture(path, {16, 16});
    if (!picture) return workbench.prompts().tell(picture.error());
    const auto size = wanted_size(workbench, picture->size);
    if (!size) return;
    const auto relative_path = bring_picture_into_website(path, workbench.website_folder());
    if (!relative_path)
        return workbench.prompts().tell(copy_fault_message(relative_path.error()), MessageIcon::kCritical);

    const bool is_logo = role == PictureRole::kLogo;
    workbench.editor().paste_at_end(
        picture_markup({.page_text = workbench.editor().text(),
                        .page_file = workbench.page(),
                        .picture = *relative_path,
                        .name_source = is_logo ? u"marchio"_s : QFileInfo(*relative_path).fileName(),
                        .size = *size}));
    if (is_popup_page(workbench.page())) settle_popup_size(workbench.popup_size());
}

void insert_pasted_picture(Workbench& workbench, const QImage& picture) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"picture.png"_s);
    if (!folder.isValid() || !picture.save(path)) {
        return workbench.prompts().tell(u"The pasted picture could not be stored."_s, MessageIcon::kCritical);
    }
    insert_picture(workbench, path);
}

}  // namespace pondera
