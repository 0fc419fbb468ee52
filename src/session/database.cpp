#include "session/database.h"

namespace kalo {
namespace {

CDaoDatabase* g_database = nullptr;
CRITICAL_SECTION g_lock;

}  // namespace

CDaoDatabase* Database() {
    return g_database;
}

void SetDatabase(CDaoDatabase* database) {
    g_database = database;
}

bool DatabaseIsOpen() {
    return g_database != nullptr && g_database->IsOpen();
}

void CreateLock() {
    InitializeCriticalSection(&g_lock);
}

void DeleteLock() {
    DeleteCriticalSection(&g_lock);
}

void EnterLock() {
    EnterCriticalSection(&g_lock);
}

void LeaveLock() {
    LeaveCriticalSection(&g_lock);
}

CRITICAL_SECTION& Lock() {
    return g_lock;
}

}  // namespace kalo
