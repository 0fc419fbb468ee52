#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "afx.h"
#include "afxdisp.h"
#include "mfc/extension_module.h"
#include "mfc/message_box.h"
#include "support/temporary_directory.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRemoved = -1;

// The cause of the exception that CFile::Remove throws.
int CauseOfRemoving(const std::string& path) {
    try {
        CFile::Remove(path.c_str());
        return kRemoved;
    } catch (CFileException* exception) {
        const int cause = exception->m_cause;
        char message[8];
        EXPECT_TRUE(exception->GetErrorMessage(message, sizeof message));
        EXPECT_LT(std::strlen(message), sizeof message);
        EXPECT_EQ(exception->m_strFileName, path.c_str());
        exception->Delete();
        return cause;
    }
}

TEST(MfcFile, StatusTellsSizeWithoutOpening) {
    const support::TemporaryDirectory directory;
    const std::string path = directory.File("f.mdb");
    CFileStatus status;
    EXPECT_FALSE(CFile::GetStatus(path.c_str(), status));
    EXPECT_FALSE(CFile::GetStatus(directory.File("none/f.mdb").c_str(), status));
    support::WriteFile(path, std::string(4097, 'x'));
    fs::permissions(path, fs::perms::owner_read);
    ASSERT_TRUE(CFile::GetStatus(path.c_str(), status));
    EXPECT_EQ(status.m_size, 4097U);
    EXPECT_EQ(status.m_attribute & 1, 1);
    fs::permissions(path, fs::perms::owner_all);
}

TEST(MfcFile, RemoveTakesTheJournalsAlong) {
    const support::TemporaryDirectory directory;
    const std::string path = directory.File("f.mdb");
    for (const char* const suffix : {"", "-wal", "-shm", "-journal", ".jet", "-other"})
        support::WriteFile(path + suffix, "x");
    EXPECT_EQ(CauseOfRemoving(path), kRemoved);
    for (const char* const suffix : {"", "-wal", "-shm", "-journal"})
        EXPECT_FALSE(fs::exists(path + suffix)) << suffix;
    EXPECT_TRUE(fs::exists(path + ".jet"));
    EXPECT_TRUE(fs::exists(path + "-other"));
    support::WriteFile(path + "-wal", "left behind");
    EXPECT_EQ(CauseOfRemoving(path), CFileException::fileNotFound);
    EXPECT_FALSE(fs::exists(path + "-wal"));
}

TEST(MfcFile, WhatCannotBeRemovedStaysWhole) {
    const support::TemporaryDirectory directory;
    const std::string readOnly = directory.File("readonly.mdb"), folder = directory.File("folder");
    support::WriteFile(readOnly, "x");
    support::WriteFile(readOnly + "-wal", "x");
    fs::permissions(readOnly, fs::perms::owner_read);
    EXPECT_EQ(CauseOfRemoving(readOnly), CFileException::accessDenied);
    EXPECT_TRUE(fs::exists(readOnly) && fs::exists(readOnly + "-wal"));
    fs::create_directory(folder);
    EXPECT_EQ(CauseOfRemoving(folder), CFileException::accessDenied);
    EXPECT_TRUE(fs::exists(folder));
    EXPECT_EQ(CauseOfRemoving(directory.File("missing/f.mdb")), CFileException::fileNotFound);
    EXPECT_EQ(CauseOfRemoving(""), CFileException::fileNotFound);
    fs::permissions(readOnly, fs::perms::owner_all);
}

TEST(MfcMessageBox, HookReceivesTheTextAndAnswers) {
    std::string received;
    const auto former = mfc::ReplaceMessageBox([&](const std::string& text, UINT type) {
        received = text;
        return type == MB_OK ? 77 : 0;
    });
    EXPECT_EQ(AfxMessageBox("UP Firmware Change : failed"), 77);
    EXPECT_EQ(received, "UP Firmware Change : failed");
    mfc::ReplaceMessageBox(former);
}

TEST(MfcExtensionModule, RegistrationCanBeRefused) {
    AFX_EXTENSION_MODULE module;
    char instance = 0;
    const int before = mfc::CountExtensionModules();
    mfc::RefuseExtensionModules(true);
    EXPECT_FALSE(AfxInitExtensionModule(module, reinterpret_cast<HINSTANCE>(&instance)));
    EXPECT_FALSE(module.bInitialized);
    mfc::RefuseExtensionModules(false);
    EXPECT_TRUE(AfxInitExtensionModule(module, reinterpret_cast<HINSTANCE>(&instance)));
    EXPECT_EQ(mfc::CountExtensionModules(), before + 1);
    AfxTermExtensionModule(module);
    AfxTermExtensionModule(module);
    EXPECT_EQ(mfc::CountExtensionModules(), before);
}

TEST(MfcVariant, ClearFreesAndEmpties) {
    COleVariant variant;
    EXPECT_EQ(variant.vt, VT_EMPTY);
    EXPECT_EQ(variant.lVal, 0);
    variant.vt = VT_BSTR;
    V_BSTR(&variant) = SysAllocStringByteLen("a\0b", 3);
    EXPECT_EQ(SysStringByteLen(V_BSTR(&variant)), 3U);
    EXPECT_EQ(std::memcmp(V_BSTRT(&variant), "a\0b", 4), 0);
    variant.Clear();
    EXPECT_EQ(variant.vt, VT_EMPTY);
    variant.vt = VT_ARRAY | VT_UI1;
    variant.parray = SafeArrayCreateVector(VT_UI1, 0, 5);
    ASSERT_NE(variant.parray, nullptr);
    LONG last = 0;
    EXPECT_EQ(SafeArrayGetUBound(variant.parray, 1, &last), S_OK);
    EXPECT_EQ(last, 4);
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(variant.parray, &data), S_OK);
    std::memset(data, 1, 5);
    EXPECT_EQ(SafeArrayUnaccessData(variant.parray), S_OK);
}

}  // namespace
