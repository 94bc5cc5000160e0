#include "RadbenchLog.h"

Q_LOGGING_CATEGORY(lcFramework, "radbench.framework")
Q_LOGGING_CATEGORY(lcController, "radbench.controller")
Q_LOGGING_CATEGORY(lcView, "radbench.view")
