// Makes one call of a kind fail. The library hexlume_faults takes the place of the system's functions: it is linked before them,
// or preloaded. A preloaded one takes its orders from the environment:
//
//   HEXLUME_FAULT=KIND:N             the N-th call of that kind fails, in each process for itself
//   HEXLUME_FAULT=KIND:N:kill        the process kills itself in its place
//   HEXLUME_FAULT=KIND:N:crash       the call reads what isn't there
//   HEXLUME_FAULT=module:N:missing   what is loaded isn't there; without this word it is damaged
//   HEXLUME_FAULT_CALLS=FOLDER       gets a file for each process, with a FaultCall for each call of the kind
//
// With HEXLUME_FAULT a process that a signal ends says which library it was in: "faults: ended in libX.so".
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
  FAULT_NONE = -1,
  FAULT_MEMORY,  // malloc and its like
  FAULT_WRITE,   // write, fwrite, fflush and their like
  FAULT_READ,
  FAULT_OPEN,  // of files and folders
  FAULT_CLOSE,
  FAULT_RENAME,
  FAULT_SYNC,     // fsync, ftruncate
  FAULT_FONT,     // of fontconfig and FreeType
  FAULT_PROCESS,  // pipes and new processes
  FAULT_MODULE,   // dlopen
  FAULT_KINDS
};

// A record of a call. The file survives the process, however it ends.
struct FaultCall {
  uint64_t place;  // a digest of the nearest callers; never 0
  char owner[24];  // the library, or program, that has made the call, apart from the C and C++ libraries
};

// From now on the call with this number fails, from 1; 0 for none. Starts counting anew.
void hexlume_fault_arm(int32_t kind, int64_t call);

// Lets all calls succeed again. Returns how many of the kind there were.
int64_t hexlume_fault_disarm(void);

// Blocks of memory that are in use.
int64_t hexlume_fault_blocks(void);

#ifdef __cplusplus
}
#endif
