#pragma once

#include <QSet>
#include <QString>

namespace TavoSim {

class TargetProfile;

/*
 * The target commands whose presence depends on the target, each with the
 * rule that tells from a profile whether the target offers it. This is the
 * one place that decides what the support queries answer; a new call family
 * adds its commands to the table in CommandCatalog.cpp.
 *
 * A catalogued command that the current profile does not offer answers
 * TAVO_ERR_NOT_SUPPORTED when called. Calls outside the catalog (the
 * connection, the support queries themselves, text calls) are always there.
 */
namespace CommandCatalog {

bool contains(const QString &command);

/* The commands a profile offers by its sections, before the profile's
 * explicit "commands" overrides. */
QSet<QString> offeredBy(const TargetProfile &profile);

} // namespace CommandCatalog

} // namespace TavoSim
