// Control of the simulated USB devices beyond the state (C linkage, exported by the simulated
// libbrelo.so.1).
#ifndef SIM_SIM_USB_H
#define SIM_SIM_USB_H

#ifdef __cplusplus
extern "C" {
#endif

// Asked before a simulated read or write touches the `length` bytes at `addr` that a caller
// lent it; non-zero allows the transfer, 0 refuses it (the call then fails with -1 and touches
// nothing). A test that knows which memory is lent (e.g. a fake JVM that knows its pinned
// arrays) installs one; without one only the transfer-size bound of the state applies.
typedef int (*sim_usb_memory_check_fn)(const void *addr, long length, void *ctx);
void sim_usb_set_memory_check(sim_usb_memory_check_fn check, void *ctx);

#ifdef __cplusplus
}
#endif

#endif
