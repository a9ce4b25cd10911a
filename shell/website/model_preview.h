#pragma once

#include <QString>

namespace pondera {

class Roots;

/// Makes the small pictures by which the pickers show a model: each of its cards as a visitor would see it. A card that
/// cannot be shown in time gets none.
void photograph_model(const Roots& roots, const QString& model);

}  // namespace pondera
