#ifndef KALODATA_TYPES_H
#define KALODATA_TYPES_H

#include <stdint.h>

/*
 * What every exported function has in common.
 *
 * Calling convention: __stdcall on Windows. Inputs come by value (axis numbers 16 bits, in some functions
 * 32; ids and versions 32 bits, indices and counts 16 bits), outputs go through pointers to memory that the
 * caller owns. The library keeps no pointer after a call and never hands out memory of its own.
 *
 * Status: every function but KaloSetFileName returns 0 for success or a code that names the function and the
 * case (docs/status-codes.md lists them all). A code of the form 0x2Bnn0000 or 0x2Cnn0000 marked "+ DAO" has
 * the number of the database engine's error added to it.
 *
 * Texts are in the process's ANSI code page on Windows and in UTF-8 elsewhere. A text is cut to its array on
 * a character boundary and terminated, unless its field says otherwise.
 *
 * Records are packed; their layout is fixed to the byte.
 *
 * Threads: any thread may call. After a function returned a caught DAO error the library's lock may stay held
 * by the calling thread (see the page docs/threads.md): that thread can go on, others wait.
 */

#if defined(_WIN32)
#define KALO_CALL __stdcall
#define KALO_API
#else
#define KALO_CALL
#define KALO_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#define KALO_BEGIN_DECLARATIONS extern "C" {
#define KALO_END_DECLARATIONS }
#else
#define KALO_BEGIN_DECLARATIONS
#define KALO_END_DECLARATIONS
#endif

/* 0 for success, else a code. */
typedef uint32_t KaloStatus;

/* No option unit is fitted. */
#define KALO_NO_OPTION 65533

/* Standard product: custom specification 0 or this value; encoder firmware: none. */
#define KALO_NONE 65535

#endif
