#include "data/CHelper.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

bool CHelper::TmFieldsPtrToFields(const TLFields*, CRvFields&) {
    throw CdataNotBuilt("CHelper::TmFieldsPtrToFields");
}

bool CHelper::StandFieldsLength(CRvFields&) {
    throw CdataNotBuilt("CHelper::StandFieldsLength");
}

bool CHelper::GetEditFieldDef(const CRvFields&, CRvFields&) {
    throw CdataNotBuilt("CHelper::GetEditFieldDef");
}

}  // namespace TMObjects
