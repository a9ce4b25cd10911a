#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>

namespace pondera {

/// What the help viewer is asked to show.
struct HelpArguments {
    QString page;                    ///< path below the Websites root, "/_HELP/_6_Ins Image.htm"; empty: the index
    QString caption;                 ///< "Help - Select Image"; empty: "Help"
    std::optional<QPoint> position;  ///< of the window on the screen
};

/// Reads the viewer's command line: "/PERCORSO:" path, "+/CAPTION:" caption, "+/LEFT:" n, "+/TOP:" n, in any order,
/// each in an argument of its own, all joined in one, or torn apart at blanks. What is none of these is ignored.
[[nodiscard]] HelpArguments parse_help_arguments(const QStringList& arguments);

/// The command line that parse_help_arguments reads back, one argument each.
[[nodiscard]] QStringList help_arguments(const HelpArguments& arguments);

/// The file of a help page below `websites_root`: `page` with slashes either way. Empty when it lies outside the help
/// folder ("_HELP") or does not exist.
[[nodiscard]] QString help_file(const QString& websites_root, const QString& page);

/// The page that lists all help pages.
[[nodiscard]] QString help_index();

}  // namespace pondera
