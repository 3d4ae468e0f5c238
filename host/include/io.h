#pragma once

/// Unbuffered files opened by Windows-style path. Flags are those of <fcntl.h>, in either spelling.

#include <fcntl.h>

#define _O_RDONLY O_RDONLY
#define _O_WRONLY O_WRONLY
#define _O_RDWR O_RDWR
#define _O_APPEND O_APPEND
#define _O_CREAT O_CREAT
#define _O_TRUNC O_TRUNC
#define _O_EXCL O_EXCL
#define _O_TEXT 0 // text and binary files are alike: lines end in LF
#define _O_BINARY 0
#define _S_IREAD 0400
#define _S_IWRITE 0200

/// open on a Windows-style (or native absolute) path. Created files take the permissions that the user's mask leaves;
/// `permission` without _S_IWRITE makes them read-only. @return a descriptor, or -1 with errno set.
int _wopen(const wchar_t* path, int flags, int permission = _S_IREAD | _S_IWRITE);
int _write(int descriptor, const void* buffer, unsigned int size);
int _close(int descriptor);
/// Whether the file may be used so: 0 exists, 2 written, 4 read, 6 both. @return 0 when it may, else -1.
int _waccess(const wchar_t* path, int mode);
