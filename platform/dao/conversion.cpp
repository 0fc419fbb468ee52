#include "dao/conversion.h"

#include <new>
#include <system_error>

#include "dao/connection.h"
#include "dao/conversion_steps.h"
#include "dao/errors.h"
#include "dao/file_kind.h"
#include "jet/error.h"
#include "system/durable_file.h"
#include "system/file_path.h"
#include "system/renewal_lock.h"
#include "system/sidecar_files.h"

namespace fs = std::filesystem;

namespace daoengine {
namespace {

constexpr int kInUse = 3045;
constexpr int kCannotWrite = 3051;
constexpr int kDiskFull = 3026;
constexpr int kDamaged = 3049;

// The file that a conversion writes, until it takes the original's place. One that a process left behind is
// removed.
class UnfinishedFile {
  public:
    explicit UnfinishedFile(const fs::path& database) : path_(database) {
        path_ += ".converting";
        Remove();
    }
    ~UnfinishedFile() { Remove(); }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const fs::path& Path() const { return path_; }

  private:
    void Remove() const {
        std::error_code ignored;
        fileio::RemoveSidecarFiles(path_);
        fs::remove(path_, ignored);
    }

    fs::path path_;
};

fs::path SecondNameOf(const fs::path& database) {
    fs::path name = database;
    name += ".jet";
    return name;
}

void Write(const fs::path& database, const std::string& password, const fs::path& unfinished) {
    const jetfile::Reader reader(fileio::NarrowPath(database), password);
    Engine engine(CreateDatabase(unfinished).release(), Engine::Ownership::Owned);
    PassStep(ConversionStep::Started);
    CopyDatabase(reader, password, engine);
}

void MakeDurable(const fs::path& database, const fs::path& unfinished) {
    fileio::CopyOwnership(database, unfinished);
    fileio::FlushFile(unfinished);
    PassStep(ConversionStep::Durable);
}

// At every moment the database's name leads to a whole file, the original or the new one, and the original
// has a durable name of its own before it loses this one.
void Publish(const fs::path& database, const fs::path& unfinished) {
    fileio::KeepUnderSecondName(database, SecondNameOf(database));
    fileio::FlushFolderOf(database);
    PassStep(ConversionStep::OriginalKept);
    if (const std::error_code error = fileio::RemoveSidecarFiles(database)) throw std::system_error(error);
    fileio::FlushFolderOf(database);
    PassStep(ConversionStep::JournalsRemoved);
    fileio::RenameOver(unfinished, database);
    PassStep(ConversionStep::Replaced);
    fileio::FlushFolderOf(database);
    PassStep(ConversionStep::Finished);
}

void ConvertLocked(const fs::path& database, const std::string& password, const fileio::RenewalLock& lock) {
    const UnfinishedFile unfinished(database);
    Write(database, password, unfinished.Path());
    PassStep(ConversionStep::Written);
    MakeDurable(database, unfinished.Path());
    if (!lock.IsCurrent()) Throw(kInUse, "The file was renewed while it was being converted.");
    Publish(database, unfinished.Path());
}

// What goes wrong with what the engine is told here lies in what the file holds.
[[noreturn]] void ThrowConversionError(const jet::Error& error) {
    constexpr int kInvalidArgument = 3001;
    if (error.Number() == kInvalidArgument) Throw(kDamaged, error.what());
    throw error;
}

[[noreturn]] void ThrowFileError(const std::system_error& error) {
    const bool full = error.code() == std::errc::no_space_on_device;
    Throw(full ? kDiskFull : kCannotWrite,
          TextOf(full ? kDiskFull : kCannotWrite) + " (" + error.what() + ")");
}

}  // namespace

void ConvertFile(const fs::path& path, const std::string& password, std::chrono::milliseconds patience) {
    try {
        if (!fileio::IsWritable(path)) Throw(kCannotWrite);
        const auto lock = fileio::RenewalLock::Acquire(path, patience);
        if (!lock) Throw(kInUse, "The file is being converted.");
        if (KindOf(path) == FileKind::Engine) return;
        PassStep(ConversionStep::Locked);
        ConvertLocked(path, password, *lock);
    } catch (const jet::Error& error) {
        ThrowConversionError(error);
    } catch (const std::system_error& error) {
        ThrowFileError(error);
    }
}

}  // namespace daoengine
