#pragma once

#include <QString>

class QImage;

namespace pondera {

class Workbench;

enum class PictureRole { kImage, kLogo };

/// Puts a picture file on the page under edit as a positioned element at the end of its body: a picture from elsewhere
/// is copied into the Website, one wider than the page is offered at a width that fits. What is no picture is refused
/// with a message. Also what a file dropped on the page becomes.
void insert_picture(Workbench& workbench, const QString& path, PictureRole role = PictureRole::kImage);

/// Puts a picture that is no file (pasted from another program) on the page, as a PNG named "picture".
void insert_pasted_picture(Workbench& workbench, const QImage& picture);

}  // namespace pondera
