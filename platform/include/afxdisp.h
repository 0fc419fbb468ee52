#pragma once

#include <cstring>

#include "afx.h"

// Sets all bytes of a variant to zero (VT_EMPTY).
inline void AfxVariantInit(VARIANT* variant) {
    std::memset(static_cast<void*>(variant), 0, sizeof *variant);
}

// A variant that starts empty and is cleared at its end. Texts are narrow: read them with V_BSTRT.
class COleVariant : public VARIANT {
  public:
    COleVariant() { AfxVariantInit(this); }
    ~COleVariant() { Clear(); }
    COleVariant(const COleVariant&) = delete;
    COleVariant& operator=(const COleVariant&) = delete;
    // Clears the variant; throws nothing.
    void Clear() {
        // The types up to VT_DATE hold nothing that is freed.
        if (vt <= VT_DATE)
            vt = VT_EMPTY;
        else
            VariantClear(this);
    }
};

#ifndef V_BSTRT
#define V_BSTRT(variant) (reinterpret_cast<LPSTR>(V_BSTR(variant)))
#endif
