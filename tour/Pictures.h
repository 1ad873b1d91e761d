// SPDX-License-Identifier: MIT
#pragma once

class QDir;
class QString;
class QWidget;

/// Leaves a picture of the window or dialog @p shown in @p directory and prints its path. @return
/// whether it could be written.
[[nodiscard]] bool savePicture(QWidget& shown, const QString& name, const QDir& directory);
