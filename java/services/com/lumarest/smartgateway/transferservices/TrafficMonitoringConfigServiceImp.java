package com.lumarest.smartgateway.transferservices;

/**
 * Destination addresses (IPv4 addresses, IPv6 addresses or domain names) whose traffic the
 * gateway monitors, kept per bundle.
 *
 * <p>The lists live in the gateway's configuration tree. There are 8 groups of storage; a
 * bundle claims a free group, named after the bundle, the first time it adds an address, and
 * a group holds up to 1020 addresses (4 blocks of 255). Every change is handed to the gateway
 * with a delayed apply of the monitoring configuration (a short delay of the platform's), and
 * none is saved by this class. Adds and deletes read up to a few thousand configuration-tree
 * values, so they can take a noticeable time; the query uses 256 KiB of heap while it runs.
 * The methods keep no state and may be called from any thread, but concurrent changes for one
 * bundle may race for the same free entry. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 */
public class TrafficMonitoringConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds destination addresses to the monitoring list of a bundle.
     *
     * <p>Every address is checked first; one refused address refuses the whole call and
     * nothing is written. Addresses already stored for the bundle are skipped (those stored in
     * a later block than the first free entry are not compared, and the same address given
     * twice in one call is stored twice). Each new address takes the next free
     * entry of the bundle's group; when that group is full, or a free group lies before it,
     * the addresses go to a free group, which the bundle then claims as well.
     *
     * <p>Mind how a group is claimed: when a call writes into a group the bundle does not own
     * yet (its first add, or the overflow just described), every address of that call goes to
     * the same entry and only the last one stays. Give such a call a single address, then add
     * the others. Likewise, when all room runs out during a call, the remaining addresses
     * overwrite the last entry written.
     *
     * @param destAddresses the addresses to add: each an IPv4 address or domain name, or an
     *            IPv6 address, as the gateway's address checkers accept them; a refused or null
     *            element gives -1. At most the first 256 elements are read and each is cut at
     *            127 characters; a null or empty array adds nothing
     * @param bundleName the name of the bundle whose list it is (its symbolic name, by
     *            convention), compared exactly; cut at 255 characters; null gives -1
     * @return 0 when the call was carried out, also when every address was already stored or
     *         none was given (nothing is changed then); -1 when an address is refused or a
     *         text cannot be read, and when the bundle's group and every other group are full
     *         or owned by other bundles (also for an empty array)
     * @example <pre>{@code
     * addTrafficMonitoringDestAddressJni ["203.0.113.44"] "com.lumarest.app.netmeter"
     * 0
     * }</pre>
     */
    public native int addTrafficMonitoringDestAddressJni(String[] destAddresses, String bundleName);

    /**
     * Deletes destination addresses from the monitoring list of a bundle.
     *
     * <p>Every address is checked first, as for adding; one refused address refuses the whole
     * call. Every stored address of the bundle's group equal (exactly) to one given is
     * cleared. Then each block of the group left without addresses is removed; when the
     * group's first block is left empty this frees the group, even if later blocks still hold
     * addresses, which are then no longer listed. That clean-up runs even when nothing was
     * deleted. Only the bundle's first group is searched.
     *
     * @param destAddresses the addresses to delete, written as they were added; each must pass
     *            the same checks as for adding (a refused or null element gives -1). At most
     *            the first 256 elements are read; a null or empty array deletes nothing
     * @param bundleName the name the addresses were added under, compared exactly; null gives
     *            -1
     * @return 0 when the call was carried out, also when none of the addresses was stored; -1
     *         when no group belongs to the bundle, an address is refused or a text cannot be
     *         read
     * @example <pre>{@code
     * deleteTrafficMonitoringDestAddressJni ["cdn.example.net"] "com.lumarest.app.netmeter"
     * 0
     * }</pre>
     */
    public native int deleteTrafficMonitoringDestAddressJni(String[] destAddresses, String bundleName);

    /**
     * Lists the monitored destination addresses of every bundle.
     *
     * <p>Bundles are listed in group order, a bundle that overflowed into a second group once
     * per group. Addresses are listed in storage order, which is not always the order they
     * were added in. Texts are inserted unescaped (a library built with its hardened profile
     * escapes them), and an address that itself contains "," is listed as two pieces. The
     * reply holds at most 131,072 bytes; a longer list is cut there and is then not complete
     * JSON.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per group holding {@code "BundleName"} (quoted text) and
     *         {@code "DestAddressList"} (an array of quoted texts, empty for a claimed group
     *         without addresses). No groups give {@code {"Result":0,"List":[]}}. The failure
     *         reply (no memory for the query) is exactly
     *         {@code {"Result":-1,"FailReason":"No enough memory"}}.
     * @example <pre>{@code
     * getTrafficMonitoringDestAddressInfoJni
     * {"Result":0,"List":[{"BundleName":"com.lumarest.app.netmeter","DestAddressList":["198.51.100.7","cdn.example.net"]}]}
     * }</pre>
     */
    public native String getTrafficMonitoringDestAddressInfoJni();
}
