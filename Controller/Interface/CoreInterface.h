#pragma once

// The two faces of a controller: tests on pages, and calibration data.
#include "JsonModel.h"
#include "RatSupportStatus.h"
#include "RfCoreCalDataOperation.h"
#include "RfTest.h"
