#pragma once

#include <QStringList>

#include "publish/commands/remote_task.h"
#include "publish/sending/publication.h"

namespace pondera {

/// Lists media folders of a Website on the server, as it is done before every transfer: into "media", into each folder,
/// "DIR", and up again. A way that is refused is tried once more; a folder that is not there counts as listed and
/// empty, one that is and cannot be listed does not count.
class VerifyTask : public RemoteTask {
  public:
    /// `remote_folder` is the Website's own, absolute; `names` those of the folders in "media": "img", "audio".
    VerifyTask(QString remote_folder, QStringList names);

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    [[nodiscard]] const RemoteFiles& found() const { return found_; }

  private:
    void give_up(const QString& name, bool missing);
    [[nodiscard]] QString media() const { return remote_folder_ + QStringLiteral("/media"); }

    QString remote_folder_;
    QStringList pending_;  ///< folders that are not listed yet
    QStringList tried_;    ///< folders to which a way was refused, "media" among them
    bool again_ = false;   ///< the next turn is the second try of the first pending folder
    RemoteFiles found_;
};

/// The names of a listing that are shown to the person and fetched: of its first 10,001 lines those that do not begin
/// with "." and end in .jpg, .gif, .mp3 or .htm, in any case.
[[nodiscard]] QStringList listed_names(const RemoteListing& listing);

/// Whether that name is one of `listed_names`.
[[nodiscard]] bool is_listed_name(const QString& name);

}  // namespace pondera
