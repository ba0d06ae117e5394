// A program that imports a library of the system as any program does: it is loaded with it, from
// beside the program if there is one.
#include <windows.h>

#include <winhttp.h>

int main() {
    const volatile auto imported = &WinHttpOpen; // which is never called
    return imported ? 0 : 1;
}
