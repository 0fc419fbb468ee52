/* A host in C that is linked to the installed library. */
#include <kalodata/kalodata.h>
#include <stdio.h>

static int expect(const char* call, KaloStatus status, KaloStatus expected) {
    if (status == expected) return 0;
    printf("%s: 0x%08X instead of 0x%08X\n", call, (unsigned)status, (unsigned)expected);
    return 1;
}

int main(void) {
    uint16_t different = 0;
    int faults = 0;
    KaloSetFileName("host", "missing/IdeInfo.mdb");
    faults += expect("KaloModelTableSelect(5)", KaloModelTableSelect(5), 0x2BFF06BA);
    faults += expect("KaloModelTableSelect(2)", KaloModelTableSelect(2), 0);
    faults += expect("KaloCheckTraceID", KaloCheckTraceID(1, 1, 0, 0, 2, 0, 0, &different), 0);
    faults += expect("KaloOpen", KaloOpen(0), 0x2B010000 + 3044); /* no such folder */
    faults += expect("KaloClose", KaloClose(), 0);
    return faults;
}
