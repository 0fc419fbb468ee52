#include "dao/exceptions.h"

#include <afxdao.h>

#include <algorithm>
#include <cstring>

#include "dao/errors.h"
#include "mfc/narrow.h"

namespace daoengine {
namespace {

// An automation error of the DAO facility carries its number in the low word.
constexpr std::uint32_t kDaoFacility = 0x800A0000U;

}  // namespace

void ThrowDaoException(int number, const std::string& text) {
    auto* exception = new CDaoException;
    exception->m_scode = static_cast<SCODE>(kDaoFacility + static_cast<std::uint32_t>(number));
    exception->m_pErrorInfo = new CDaoErrorInfo;
    exception->m_pErrorInfo->m_lErrorCode = number;
    exception->m_pErrorInfo->m_strSource = "DAO.Database";
    const std::string description = text.empty() ? TextOf(number) : text;
    exception->m_pErrorInfo->m_strDescription = NarrowFromUtf8(description).c_str();
    throw exception;
}

}  // namespace daoengine

CDaoException::CDaoException() = default;

CDaoException::~CDaoException() {
    delete m_pErrorInfo;
}

BOOL CDaoException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) {
    if (error == nullptr || maxError == 0) return FALSE;
    if (helpContext != nullptr) *helpContext = 0;
    *error = '\0';
    if (m_pErrorInfo == nullptr) return FALSE;
    const auto length = static_cast<UINT>(m_pErrorInfo->m_strDescription.GetLength());
    const UINT copied = std::min(length, maxError > 2 ? maxError - 2 : 0);
    std::memcpy(error, static_cast<LPCTSTR>(m_pErrorInfo->m_strDescription), copied);
    error[copied] = '\0';
    return TRUE;
}
