#include "support/library_fixture.h"

#include <algorithm>
#include <filesystem>
#include <thread>

#include "dao/create_database.h"
#include "dao/seam.h"
#include "session/database.h"
#include "session/session_state.h"
#include "support/host_directory.h"
#include "support/temporary_directory.h"
#include "system/sidecar_files.h"

extern "C" BOOL APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace support {
namespace {

namespace fs = std::filesystem;
namespace seam = daoengine::seam;

constexpr const char* kPassword = "mivmiv";

// A number that no statement of the tests fails with by itself.
constexpr int kInjected = 3187;

std::string FieldText(CDaoRecordset& rows, int column) {
    COleVariant value;
    rows.GetFieldValue(column, value);
    switch (V_VT(&value)) {
        case VT_NULL:
            return "-";
        case VT_BSTR:
            return V_BSTRT(&value);
        case VT_UI1:
            return std::to_string(V_UI1(&value));
        case VT_I2:
            return std::to_string(V_I2(&value));
        case VT_BOOL:
            return std::to_string(V_BOOL(&value));
        case VT_R4:
            return std::to_string(V_R4(&value));
        case VT_R8:
            return std::to_string(V_R8(&value));
        default:
            return std::to_string(V_I4(&value));
    }
}

void RunStatement(CDaoDatabase& database, const std::string& statement) {
    CDaoQueryDef query(&database);
    query.Create(nullptr, statement.c_str());
    query.Execute(64);
}

std::string ReadRows(const std::string& select) {
    CDaoRecordset rows(kalo::Database());
    rows.Open(dbOpenDynaset, select.c_str(), 0);
    std::string text;
    for (; !rows.IsEOF(); rows.MoveNext()) {
        for (int column = 0; column < rows.GetFieldCount(); ++column) {
            text += (column == 0 ? "" : "|") + FieldText(rows, column);
        }
        text += '\n';
    }
    return text;
}

// Runs `body` and returns the number of the DAO error that it threw, with its text, or 0.
template <class Body>
std::pair<int, std::string> Caught(Body&& body) {
    try {
        body();
        return {0, {}};
    } catch (CDaoException* exception) {
        const std::pair<int, std::string> error = {exception->m_pErrorInfo->m_lErrorCode,
                                                   LPCTSTR(exception->m_pErrorInfo->m_strDescription)};
        exception->Delete();
        return error;
    }
}

template <class Body>
void ExpectNoError(const std::string& statement, Body&& body) {
    const auto [number, text] = Caught(body);
    EXPECT_EQ(number, 0) << statement << ": " << text;
}

constexpr std::byte kBefore{0xEE};

void Overwrite(const Memory& memory) {
    for (const std::span<std::byte> part : memory)
        std::fill(part.begin(), part.end(), kBefore);
}

// Checks that each part of the memory is as Overwrite left it.
void ExpectUntouched(const char* name, const Memory& memory) {
    for (std::size_t i = 0; i < memory.size(); ++i) {
        EXPECT_TRUE(
            std::all_of(memory[i].begin(), memory[i].end(), [](std::byte value) { return value == kBefore; }))
            << name << ' ' << i << " was written to";
    }
}

void CopyDatabase(const fs::path& from, const fs::path& to) {
    fileio::RemoveSidecarFiles(to);
    CopyOver(from, to);
}

}  // namespace

LibraryTest::LibraryTest() {
    host_ = SetHostDirectory(directory_.Path());
    ReloadLibrary();
    KaloSetFileName("host.exe", WorkingFile().c_str());
}

LibraryTest::~LibraryTest() {
    seam::Disarm();
    ReleaseLock();
    Disconnect();
    ReloadLibrary();
    ResetHostDirectory();
}

void LibraryTest::UseDatabase(std::span<const char* const> statements) {
    Disconnect();
    daoengine::CreateDatabaseFile(WorkingFile(), kPassword);
    Connect();
    for (const char* statement : statements)
        Execute({statement});
}

void LibraryTest::UseDatabase(std::initializer_list<const char*> statements) {
    UseDatabase(std::span(statements.begin(), statements.size()));
}

void LibraryTest::UseDatabase(const std::vector<std::string>& statements) {
    UseDatabase(std::span<const char* const>());
    for (const std::string& statement : statements)
        Execute({statement});
}

void LibraryTest::ShipSample(const std::string& sample) {
    CopyOver(fs::path(KALO_SAMPLE_DIR) / sample, ShippedFile(sample));
}

void LibraryTest::OpenSession(std::uint16_t country, const std::string& sample) {
    ShipSample(sample);
    ASSERT_EQ(KaloCopy(sample == "IdeInfoJ.mdb" ? 1 : 0), 0u);
    ASSERT_EQ(KaloOpen(country), 0u);
}

void LibraryTest::Connect() {
    if (kalo::Database() == nullptr) kalo::SetDatabase(new CDaoDatabase);
    ExpectNoError(WorkingFile(),
                  [this] { kalo::Database()->Open(WorkingFile().c_str(), FALSE, FALSE, kalo::kConnect); });
}

void LibraryTest::Disconnect() {
    delete kalo::Database();
    kalo::SetDatabase(nullptr);
}

void LibraryTest::UseClosedDatabase() {
    Disconnect();
    kalo::SetDatabase(new CDaoDatabase);
}

void LibraryTest::SaveDatabase() {
    Disconnect();
    CopyDatabase(WorkingFile(), directory_.File("saved.mdb"));
    Connect();
}

void LibraryTest::RestoreDatabase() {
    Disconnect();
    CopyDatabase(directory_.File("saved.mdb"), WorkingFile());
    Connect();
}

void LibraryTest::Execute(std::initializer_list<std::string> statements) {
    for (const std::string& statement : statements) {
        ExpectNoError(statement, [&] { RunStatement(*kalo::Database(), statement); });
    }
}

std::string LibraryTest::Dump(const std::string& select) {
    std::string text;
    ExpectNoError(select, [&] { text = ReadRows(select); });
    return text;
}

int LibraryTest::DaoErrorOf(const std::string& statement) {
    const bool reads = statement.starts_with("SELECT") && statement.find(" INTO ") == std::string::npos;
    return Caught([&] { reads ? void(ReadRows(statement)) : RunStatement(*kalo::Database(), statement); })
        .first;
}

bool LibraryTest::TableExists(const std::string& table) {
    return DaoErrorOf("SELECT * FROM [" + table + "]") == 0;
}

bool LibraryTest::LockIsFree() {
    bool entered = false;
    std::thread([&entered] {
        entered = TryEnterCriticalSection(&kalo::Lock()) != FALSE;
        if (entered) LeaveCriticalSection(&kalo::Lock());
    }).join();
    return entered;
}

int LibraryTest::ReleaseLock() {
    int depth = 0;
    for (; !LockIsFree(); ++depth)
        kalo::LeaveLock();
    return depth;
}

void LibraryTest::ReloadLibrary() {
    static char address;
    const auto instance = reinterpret_cast<HINSTANCE>(&address);
    DllMain(instance, DLL_PROCESS_DETACH, nullptr);
    ASSERT_TRUE(DllMain(instance, DLL_PROCESS_ATTACH, nullptr));
}

void LibraryTest::ExpectFaults(const FaultCase& fault) {
    for (const bool everAfter : {false, true}) {
        if (everAfter && fault.onceOnly) return;
        SCOPED_TRACE(everAfter ? "failing ever after" : "failing once");
        FailEveryCall(fault, everAfter);
    }
}

void LibraryTest::FailEveryCall(const FaultCase& fault, bool everAfter) {
    constexpr long kMostCalls = 100000;
    auto expected = fault.regions.begin();
    for (long nth = 1; nth < kMostCalls; ++nth) {
        if (fault.prepare) fault.prepare();
        Overwrite(fault.output);
        Overwrite(fault.behind);
        seam::FailCall(nth, kInjected, everAfter);
        const KaloStatus status = fault.call();
        const bool failed = seam::FailedCall().has_value();
        seam::Disarm();
        ASSERT_EQ(seam::OpenRecordsets(), 0) << "call " << nth;
        ASSERT_EQ(seam::OpenQueries(), 0) << "call " << nth;
        const int depth = ReleaseLock();
        if (fault.check) fault.check();
        if (!failed) {
            EXPECT_EQ(status, 0u) << "nothing failed";
            EXPECT_EQ(depth, 0) << "nothing failed";
            EXPECT_TRUE(fault.regions.empty() || *expected == fault.regions.back())
                << "a region was not reached";
            return;
        }
        if (status == 0 && fault.swallowsSome) continue;
        expected = std::find_if(expected, fault.regions.end(), [status](const FaultRegion& region) {
            return status == region.base + (region.addsNumber ? kInjected : 0);
        });
        ASSERT_NE(expected, fault.regions.end())
            << "call " << nth << " gives 0x" << std::hex << status << ", which is no region or out of order";
        SCOPED_TRACE(testing::Message() << "call " << nth << ", 0x" << std::hex << status);
        EXPECT_EQ(depth, expected->leavesLock ? 0 : 1);
        if (!expected->fills) ExpectUntouched("output", fault.output);
        ExpectUntouched("memory behind the output", fault.behind);
    }
    FAIL() << "the call never completed";
}

}  // namespace support
