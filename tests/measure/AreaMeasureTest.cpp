#include "MeasureSession.h"
