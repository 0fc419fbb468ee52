#include "dao/create_database.h"

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "system/file_path.h"
#include "system/sidecar_files.h"

namespace daoengine {

void CreateDatabaseFile(const std::string& path, const std::string& password) {
    const std::filesystem::path file = fileio::FilePath(path);
    std::error_code ignored;
    fileio::RemoveSidecarFiles(file);
    std::filesystem::remove(file, ignored);
    Engine engine(CreateDatabase(file).release(), Engine::Ownership::Owned);
    WriteBookkeeping(engine, password, {});
}

}  // namespace daoengine
