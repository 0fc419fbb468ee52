#pragma once

#include <afxdao.h>

// The process's one connection and its one lock.
namespace kalo {

// The session's database object: null until the first KaloOpen and after KaloClose.
CDaoDatabase* Database();
void SetDatabase(CDaoDatabase* database);

// True while the object holds an open database; a missing object counts as not open.
bool DatabaseIsOpen();

// The critical section around every DAO call: made when the library is loaded, deleted when it is unloaded.
void CreateLock();
void DeleteLock();
void EnterLock();
void LeaveLock();
CRITICAL_SECTION& Lock();

}  // namespace kalo
