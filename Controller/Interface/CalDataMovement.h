#pragma once

// The four movements of calibration data: target to tool, tool to target,
// file to tool, tool to file.
enum class ECalDataMovement { UploadFromFlash, DownloadToFlash, LoadFromFile, SaveToFile };
