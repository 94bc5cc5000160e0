#pragma once

#if defined(TAVO_BUILDING_LIBRARY)
#define TAVO_API __attribute__((visibility("default")))
#else
#define TAVO_API
#endif
