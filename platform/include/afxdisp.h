#pragma once

#include "afx.h"

// Sets all bytes of a variant to zero (VT_EMPTY).
void AfxVariantInit(VARIANT* variant);

// A variant that starts empty and is cleared at its end. Texts are narrow: read them with V_BSTRT.
class COleVariant : public VARIANT {
  public:
    COleVariant();
    ~COleVariant();
    COleVariant(const COleVariant&) = delete;
    COleVariant& operator=(const COleVariant&) = delete;
    // Clears the variant; throws nothing.
    void Clear();
};

#ifndef V_BSTRT
#define V_BSTRT(variant) (reinterpret_cast<LPSTR>(V_BSTR(variant)))
#endif
