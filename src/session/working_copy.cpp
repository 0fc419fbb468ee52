#include <kalodata/session.h>
#include <shellapi.h>

#include <string>

#include "session/session_state.h"
#include "session/side_connection.h"

using namespace kalo;

namespace {

constexpr std::uint16_t kJapanese = 1;

const char* ShippedName(std::uint16_t language) {
    return language == kJapanese ? "IdeInfoJ.mdb" : "IdeInfo.mdb";
}

// True when the working file is at most twice as large as the shipped one; both have to exist.
bool SizesFit(const CString& workingFile, const CString& shippedFile) {
    CFileStatus working;
    CFileStatus shipped;
    if (!CFile::GetStatus(workingFile, working) || !CFile::GetStatus(shippedFile, shipped)) return false;
    return 2 * shipped.m_size >= working.m_size;
}

// True when both files are of one version and the working file was closed cleanly.
bool VersionsFit(const CString& workingFile, const CString& shippedFile) {
    FileVersion working;
    CString shippedVersion;
    Status status = OpenSideConnection(workingFile);
    if (status == kOk) status = ReadFileVersion(workingFile, working);
    if (status == kOk) status = ReadShippedVersion(shippedFile, shippedVersion);
    CloseSideConnection();
    return status == kOk && working.version == shippedVersion && working.status == "Close";
}

// Returns 0, or what the shell says.
int CopyFileOver(const CString& from, const CString& to) {
    // Lists of one path each; the second terminator ends the list.
    const std::string source = std::string(from) + '\0';
    const std::string target = std::string(to) + '\0';
    SHFILEOPSTRUCTA copy = {};
    copy.wFunc = FO_COPY;
    copy.pFrom = source.c_str();
    copy.pTo = target.c_str();
    copy.fFlags = FOF_SILENT | FOF_NOCONFIRMATION;
    return SHFileOperationA(&copy);
}

Status StampNewCopy(const CString& workingFile, std::uint16_t language) {
    Status status = OpenSideConnection(workingFile);
    if (status == kOk) status = StampFile(ShippedName(language), "mdb_status", "Close");
    const Status closed = CloseSideConnection();
    return status != kOk ? status : closed;
}

// Deletes the working file. That it cannot be deleted is not reported.
void RemoveWorkingFile() {
    try {
        CFile::Remove(Session().fileName);
    } catch (CFileException* exception) {
        exception->Delete();
    }
}

}  // namespace

KaloStatus KALO_CALL KaloCopy(std::uint16_t language) {
    const CString& workingFile = Session().fileName;
    const CString shippedFile = HostDirectory() + ShippedName(language);
    if (SizesFit(workingFile, shippedFile) && VersionsFit(workingFile, shippedFile)) return kOk;
    CFileStatus existing;
    if (CFile::GetStatus(workingFile, existing)) RemoveWorkingFile();
    const int copied = CopyFileOver(shippedFile, workingFile);
    if (copied != 0) return static_cast<Status>(copied);
    return StampNewCopy(workingFile, language);
}

KaloStatus KALO_CALL KaloRemove() {
    RemoveWorkingFile();
    return kOk;
}
