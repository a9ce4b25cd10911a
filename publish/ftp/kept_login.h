#pragma once

#include <QString>

class QCheckBox;
class QLineEdit;

namespace pondera {

class Prompts;
struct FtpLogin;

/// Writes a login to its settings file, as the person asked by `box`. True when it is there; else the person was told
/// why, with the focus in `user_field` when only the user is missing, and `box` unchecked when it could not be written.
bool keep_login(Prompts& prompts, const QString& path, const FtpLogin& login, QLineEdit& user_field, QCheckBox& box);

/// Deletes the settings file of `host`, as the person asked by `box`, which is unchecked in every case. True when they
/// agreed, whether or not there was a file.
bool forget_login(Prompts& prompts, const QString& path, const QString& host, QCheckBox& box);

}  // namespace pondera
