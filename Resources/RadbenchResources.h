#pragma once

// Registers the stored models (":/TdscdmaAfc.json" and the others) and the
// button icons (":/Icon/start.png" and the others) with the resource file
// system. Resources of a static library are not registered on their own:
// whoever links RadbenchResources calls this once before the first read.
// Further calls do no harm.
void InitRadbenchResources();
