#include "tlsymbol/TLStyleSimpleLine.h"

namespace TMObjects {

TLStyleSimpleLine::~TLStyleSimpleLine() = default;

}  // namespace TMObjects
