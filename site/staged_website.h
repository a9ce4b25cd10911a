#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// A Website's folder in the making: it lies beside the Websites under a name that is never listed, so that nobody
/// ever sees half of it. It takes its place as a whole, or goes with this object.
class StagedWebsite {
  public:
    /// Makes the folder, still empty. Those that a program left behind when it ended in the middle go before.
    static FileResult<StagedWebsite> begin(const Roots& roots);

    ~StagedWebsite();
    StagedWebsite(StagedWebsite&& other) noexcept;
    StagedWebsite(const StagedWebsite&) = delete;
    StagedWebsite& operator=(const StagedWebsite&) = delete;
    StagedWebsite& operator=(StagedWebsite&&) = delete;

    [[nodiscard]] QString folder() const;

    /// Becomes the folder `website`. A folder that is there is put aside first and deleted with this object; when the
    /// change fails it is there as before, or, if even that fails, stays aside.
    [[nodiscard]] FileResult<void> take_place(const QString& website);

  private:
    explicit StagedWebsite(QString workshop);

    QString workshop_;
    std::unique_ptr<QLockFile> in_use_;
};

}  // namespace pondera
