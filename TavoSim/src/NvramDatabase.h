#pragma once

#include <QString>

#include "TargetProfile.h"

namespace TavoSim {

/*
 * The NVRAM database the host loads: which records (by LID) exist and which
 * fields they have. Part of the profile, since databases differ between
 * software loads just as targets do.
 */
namespace NvramDatabase {

/* Whether the database knows `lid`. */
bool knowsLid(const TargetProfile &profile, const QString &lid);
/* Whether the records of `lid` have the field `field`. */
bool hasField(const TargetProfile &profile, const QString &lid, const QString &field);

} // namespace NvramDatabase

} // namespace TavoSim
