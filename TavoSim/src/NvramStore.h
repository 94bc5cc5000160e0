#pragma once

#include <QString>

#include "TargetState.h"
#include "TavoCore.h"

namespace TavoSim {

/*
 * Whole records in and out of the target's NVRAM (TargetState::nvram).
 * Both refuse an unknown LID (TAVO_ERR_LID_NOT_FOUND), a record number the
 * LID does not have (TAVO_ERR_INVALID_ARGUMENT) and a buffer smaller than the
 * record (TAVO_ERR_BUFFER_TOO_SMALL), and then touch nothing.
 */
namespace NvramStore {

/* Copies exactly the record's size into `buffer`; *moved (if given) is that size. */
TAVO_RESULT read(const TargetState &state, const QString &lid, int number, void *buffer, uint32_t size,
                 uint32_t *moved = nullptr);

/* Replaces the record with the first record-size bytes of `bytes`: entirely,
 * or, when the NVRAM file cannot keep it (TAVO_ERR_FAILED), not at all. */
TAVO_RESULT write(TargetState &state, const QString &lid, int number, const void *bytes, uint32_t size,
                  uint32_t *moved = nullptr);

} // namespace NvramStore

} // namespace TavoSim
