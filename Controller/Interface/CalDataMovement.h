#pragma once

#include <QMetaType>

// The four movements of calibration data: target to tool, tool to target,
// file to tool, tool to file.
enum class ECalDataMovement { UploadFromFlash, DownloadToFlash, LoadFromFile, SaveToFile };

Q_DECLARE_METATYPE(ECalDataMovement)
