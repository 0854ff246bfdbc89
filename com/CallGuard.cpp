#include "com/CallGuard.h"

// The linker puts it at the start of the image.
extern "C" const char __ImageBase[];

namespace {

constexpr DWORD kUnwinding = 0x2;
constexpr DWORD kExitUnwind = 0x4;
constexpr DWORD kSeverityError = 3;

// Where this program's own code and data begin and end, as the linker and the headers say.
bool IsOwnCode(const void* address) {
  const auto start = reinterpret_cast<const IMAGE_DOS_HEADER*>(__ImageBase);
  const auto headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(__ImageBase + start->e_lfanew);
  const auto place = static_cast<const char*>(address);
  return place >= __ImageBase && place < __ImageBase + headers->OptionalHeader.SizeOfImage;
}

}  // namespace

namespace com {

// After a stack overflow nothing may go on.
bool IsServerFault(const EXCEPTION_RECORD& record) {
  if ((record.ExceptionFlags & (kUnwinding | kExitUnwind)) != 0) return false;
  return record.ExceptionCode >> 30 == kSeverityError &&
         record.ExceptionCode != static_cast<DWORD>(STATUS_STACK_OVERFLOW) &&
         !IsOwnCode(record.ExceptionAddress);
}

}  // namespace com

// GCC knows no __try, so the frame that owns the handler is written in assembler: one that calls,
// answers 0, and can be resumed after the call with an exception code for an answer.
extern "C" DWORD UadminCallGuarded(void (*function)(void*), void* context);

#ifdef _WIN64

extern "C" const char UadminGuardResume[];

extern "C" EXCEPTION_DISPOSITION UadminGuardHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                                    DISPATCHER_CONTEXT* dispatcher) {
  if (!com::IsServerFault(*record)) return ExceptionContinueSearch;
  const auto answer = reinterpret_cast<void*>(static_cast<ULONG_PTR>(record->ExceptionCode));
  RtlUnwindEx(frame, const_cast<char*>(UadminGuardResume), record, answer,
              dispatcher->ContextRecord, dispatcher->HistoryTable);
  return ExceptionContinueSearch;  // not reached
}

asm(R"(
  .text
  .globl UadminCallGuarded
  .globl UadminGuardResume
  .seh_proc UadminCallGuarded
UadminCallGuarded:
  subq $40, %rsp
  .seh_stackalloc 40
  .seh_endprologue
  movq %rcx, %rax
  movq %rdx, %rcx
  call *%rax
  xorl %eax, %eax
UadminGuardResume:
  addq $40, %rsp
  ret
  .seh_handler UadminGuardHandler, @except
  .seh_endproc
)");

#else

extern "C" int UadminIsServerFault(const EXCEPTION_RECORD* record) {
  return com::IsServerFault(*record) ? 1 : 0;
}

// The handler is registered in the thread's chain. RtlUnwind may leave any register but the stack
// pointer changed, so what is needed after it is read from the stack again.
asm(R"(
  .text
  .globl _UadminCallGuarded
_UadminCallGuarded:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  pushl %esi
  pushl %edi
  pushl $_UadminGuardHandler
  pushl %fs:0
  movl %esp, %fs:0
  pushl 12(%ebp)
  call *8(%ebp)
  addl $4, %esp
  xorl %eax, %eax
_UadminGuardResume:
  popl %fs:0
  addl $4, %esp
  popl %edi
  popl %esi
  popl %ebx
  popl %ebp
  ret

_UadminGuardHandler:
  pushl 4(%esp)
  call _UadminIsServerFault
  addl $4, %esp
  testl %eax, %eax
  jnz 1f
  movl $1, %eax
  ret
1:
  movl 4(%esp), %ecx
  movl 8(%esp), %edx
  pushl $0
  pushl %ecx
  pushl $2f
  pushl %edx
  call _RtlUnwind@16
2:
  movl 4(%esp), %eax
  movl (%eax), %eax
  movl 8(%esp), %esp
  leal 20(%esp), %ebp
  jmp _UadminGuardResume
)");

#endif

namespace com {

DWORD CallGuarded(void (*function)(void* context), void* context) {
  return UadminCallGuarded(function, context);
}

}  // namespace com
