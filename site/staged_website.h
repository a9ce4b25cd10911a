#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// A Website's folder in the making: it lies beside the Websites under a name that is never listed, so that nobody
/// ever sees half of it. It takes its place as a whole, or goes with this object.
class StagedWebsite {
  public:
    /// Makes the folder, still empty.
    static FileResult<StagedWebsite> begin(const Roots& roots);

    ~StagedWebsite();
    StagedWebsite(StagedWebsite&& other) noexcept;
    StagedWebsite(const StagedWebsite&) = delete;
    StagedWebsite& operator=(const StagedWebsite&) = delete;
    StagedWebsite& operator=(StagedWebsite&&) = delete;

    [[nodiscard]] QString folder() const;

    /// Becomes the folder `website`. A folder that is there is put aside first and deleted with this object; when the
    /// change fails it is there as before.
    [[nodiscard]] FileResult<void> take_place(const QString& website);

  private:
    explicit StagedWebsite(QString workshop) : workshop_(std::move(workshop)) {}

    QString workshop_;
};

}  // namespace pondera
