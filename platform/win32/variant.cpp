#include <pthread.h>

#include <cstdlib>
#include <cstring>
#include <utility>

#include "windows.h"

namespace {

// What stands in front of the bytes of a BSTR. Padded, so that the bytes stay aligned as memory from malloc
// is.
struct alignas(std::max_align_t) TextHeader {
    std::uint32_t length;
};

TextHeader* HeaderOf(BSTR text) {
    return reinterpret_cast<TextHeader*>(text) - 1;
}

// A text is mostly freed before the next one is made: a thread keeps the memory of the last short one for the
// next. All short texts take the same room.
constexpr std::size_t kShortText = 240;

// What a thread keeps. It has no destructor: code that runs when the process ends may still make texts.
struct Spare {
    void* memory;
    bool registered;  // to be freed when the thread ends
    bool ended;
};

[[gnu::tls_model("initial-exec")]] thread_local constinit Spare spare{};

// Frees what threads keep when they end, as long as the library is loaded.
class ThreadEnds {
  public:
    ThreadEnds() : made_(pthread_key_create(&key_, Free) == 0) {}
    ~ThreadEnds() {
        if (std::exchange(made_, false)) pthread_key_delete(key_);
    }
    bool Tell(Spare* kept) const { return made_ && pthread_setspecific(key_, kept) == 0; }

  private:
    static void Free(void* kept) {
        auto* const ending = static_cast<Spare*>(kept);
        std::free(std::exchange(ending->memory, nullptr));
        ending->ended = true;
    }

    pthread_key_t key_ = 0;
    bool made_ = false;
};

ThreadEnds threadEnds;

void* Allocate(std::size_t textBytes) {
    if (textBytes > kShortText) return std::malloc(sizeof(TextHeader) + textBytes);
    void* const memory = std::exchange(spare.memory, nullptr);
    return memory != nullptr ? memory : std::malloc(sizeof(TextHeader) + kShortText);
}

void Free(TextHeader* text) {
    if (spare.memory != nullptr || text->length + std::size_t{2} > kShortText) return std::free(text);
    if (!spare.registered) spare.registered = threadEnds.Tell(&spare);
    if (spare.registered && !spare.ended)
        spare.memory = text;
    else
        std::free(text);
}

constexpr ULONG ElementSize(VARTYPE type) {
    switch (type) {
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_R4:
            return 4;
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        default:
            return 0;
    }
}

}  // namespace

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) {
    // As wide as Windows's.
    constexpr std::size_t kTerminator = 2;
    auto* const header = static_cast<TextHeader*>(Allocate(std::size_t{length} + kTerminator));
    if (!header) return nullptr;
    header->length = length;
    BSTR const text = reinterpret_cast<BSTR>(header + 1);
    if (bytes)
        std::memcpy(text, bytes, length);
    else
        std::memset(text, 0, length);
    text[length] = text[length + std::size_t{1}] = '\0';
    return text;
}

void SysFreeString(BSTR text) {
    if (text) Free(HeaderOf(text));
}

UINT SysStringByteLen(BSTR text) {
    return text ? HeaderOf(text)->length : 0;
}

HRESULT VariantClear(VARIANT* variant) {
    if (variant->vt == VT_BSTR)
        SysFreeString(variant->bstrVal);
    else if (variant->vt & VT_ARRAY)
        SafeArrayDestroy(variant->parray);
    variant->vt = VT_EMPTY;
    return S_OK;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count) {
    const ULONG elementSize = ElementSize(type);
    if (elementSize == 0) return nullptr;
    auto* const array = static_cast<SAFEARRAY*>(std::calloc(1, sizeof(SAFEARRAY)));
    void* const data = std::calloc(count ? count : 1, elementSize);
    if (!array || !data) {
        std::free(array);
        std::free(data);
        return nullptr;
    }
    *array = {1, 0, elementSize, 0, data, {{count, lowerBound}}};
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (array) std::free(array->pvData);
    std::free(array);
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) {
    if (!array || !data) return E_INVALIDARG;
    ++array->cLocks;
    *data = array->pvData;
    return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) {
    if (!array || array->cLocks == 0) return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || dimension != 1) return DISP_E_BADINDEX;
    *bound = array->rgsabound[0].lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || dimension != 1) return DISP_E_BADINDEX;
    const SAFEARRAYBOUND& only = array->rgsabound[0];
    *bound = only.lLbound + static_cast<LONG>(only.cElements) - 1;
    return S_OK;
}
