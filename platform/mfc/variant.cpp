#include <cstring>

#include "afxdisp.h"

void AfxVariantInit(VARIANT* variant) {
    std::memset(static_cast<void*>(variant), 0, sizeof *variant);
}

COleVariant::COleVariant() {
    AfxVariantInit(this);
}

COleVariant::~COleVariant() {
    Clear();
}

void COleVariant::Clear() {
    VariantClear(this);
}
