#pragma once

#include <QString>

#include <string>

// Narrow text of the calling code is in the system's code page. On Linux that
// is UTF-8 whatever the locale says, so that Cal/INI files and the section and
// key names in them do not change with the user's environment.
namespace Platform {

QString WidenSystemText(const std::string &text);
std::string NarrowSystemText(const QString &text);

} // namespace Platform
