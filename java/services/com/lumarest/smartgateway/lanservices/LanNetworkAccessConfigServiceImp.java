package com.lumarest.smartgateway.lanservices;

/**
 * The MAC filter mode and the network black list, storage black list and trust list.
 *
 * <p>Decides which LAN hosts may use the network and the gateway's storage. The MAC filter mode
 * chooses the list in force: 1 the network black list (listed hosts are refused the network), 2
 * the trust list (only listed hosts are admitted). The storage black list, independent of the
 * mode, refuses listed hosts the gateway's storage. The lists and the mode belong to the gateway
 * platform; the mode is read with {@link LANHostsInfoQueryServiceImp#getMacFilterModeJni()} and
 * the lists show in the {@code "Class"} and {@code "StorageAccessStatus"} members of the host
 * lists. The class loads the native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>The list methods take a {@code String[]} of MAC texts {@code "xx:xx:xx:xx:xx:xx"}, passed
 * to the platform unchecked. At most the first 256 elements are read (the rest is ignored
 * without notice) and a text longer than 127 bytes is cut there. A null array, an empty array and
 * an array of nothing but empty texts all count as no entries; but as soon as one text is
 * non-empty every element counts, the empty ones included. A null element ends the reading and
 * the array then counts as no entries. When the virtual machine cannot provide an element's text
 * (an exception is then pending) a method returns -1 and changes nothing.
 *
 * <p>Adding is always attempted, whatever the mode; removing from the network black list or the
 * trust list is refused unless the filter is in the matching mode. This asymmetry is part of the
 * interface.
 *
 * <p>Every method runs on the calling thread and returns as soon as the platform has answered;
 * none resolves names or runs commands.
 */
public class LanNetworkAccessConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Sets the MAC filter mode.
     *
     * @param mode 1 the network black list is in force, 2 the trust list; other values are the
     *             platform's to accept or refuse (the simulated gateway also accepts 0), passed
     *             unchanged
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure
     * @example <pre>{@code
     * setMacFilterModeJni 2
     * 0
     * }</pre>
     */
    public native int setMacFilterModeJni(int mode);

    /**
     * Adds LAN hosts to the network black list.
     *
     * <p>The hosts are added one by one, in array order; the filter mode is neither read nor
     * changed. The walk stops at the first empty text, or at the first host the platform refuses
     * with -1; the hosts added before stay on the list.
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the result of the last platform call when the walk went through every entry (0 success; 0 also
     *         when there was nothing to add, without asking the platform); -1 at an empty text
     *         among the entries, when the platform refused a host with -1, when no working memory
     *         could be had, or when the virtual machine could not provide an element's text
     * @example <pre>{@code
     * addLANHostToBlackListJni ["00:E0:4C:68:01:A2","A4:77:33:C1:5D:90"]
     * 0
     * }</pre>
     */
    public native int addLANHostToBlackListJni(String[] macs);

    /**
     * Removes LAN hosts from the network black list.
     *
     * <p>Refused unless the MAC filter mode is 1 (black list): the mode is read first, and in any
     * other mode, or when it cannot be read, nothing is changed and the array is not even read.
     * In black-list mode all entries are handed to the platform in one call, which removes those
     * on the list (an empty array still makes the call, with no entries).
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the platform's result as it came: 0 success, non-zero failure; -1 when the filter is
     *         not in black-list mode, when the mode cannot be read, when no working memory could be
     *         had, or when the virtual machine could not provide an element's text
     * @example <pre>{@code
     * deleteLANHostFromBlackListJni ["3C:5A:B4:10:22:07"]
     * 0
     * }</pre>
     */
    public native int deleteLANHostFromBlackListJni(String[] macs);

    /**
     * Adds LAN hosts to the storage black list, refusing them the gateway's storage.
     *
     * <p>The current filter mode is saved first, the hosts are added one by one in array order,
     * and the saved mode is set again afterwards, whatever the outcome. The walk stops at the
     * first empty text, or at the first host the platform refuses with -1; the hosts added before
     * stay on the list.
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the result of the last platform call when the walk went through every entry (0 success; 0 also
     *         when there was nothing to add); -1 at an empty text among the entries, when the
     *         platform refused a host with -1, when no working memory could be had, or when the
     *         virtual machine could not provide an element's text
     * @example <pre>{@code
     * addLANHostToStorageBlackListJni ["A4:77:33:C1:5D:90"]
     * 0
     * }</pre>
     */
    public native int addLANHostToStorageBlackListJni(String[] macs);

    /**
     * Removes LAN hosts from the storage black list, giving them back the gateway's storage.
     *
     * <p>Works in any filter mode: the current mode is saved, all entries are handed to the
     * platform in one call, which removes those on the list, and the saved mode is set again.
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the platform's result as it came: 0 success, non-zero failure; -1 when no working
     *         memory could be had or the virtual machine could not provide an element's text
     * @example <pre>{@code
     * deleteLANHostFromStorageBlackListJni ["9C:B6:D0:0A:44:E3"]
     * 0
     * }</pre>
     */
    public native int deleteLANHostFromStorageBlackListJni(String[] macs);

    /**
     * Adds LAN hosts to the trust list.
     *
     * <p>The hosts are added one by one, in array order; the filter mode is neither read nor
     * changed. The walk stops at the first empty text, or at the first host the platform refuses
     * with -1; the hosts added before stay on the list.
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the result of the last platform call when the walk went through every entry (0 success; 0 also
     *         when there was nothing to add, without asking the platform); -1 at an empty text
     *         among the entries, when the platform refused a host with -1, when no working memory
     *         could be had, or when the virtual machine could not provide an element's text
     * @example <pre>{@code
     * addLANHostToTrustListJni ["A4:77:33:C1:5D:90"]
     * 0
     * }</pre>
     */
    public native int addLANHostToTrustListJni(String[] macs);

    /**
     * Removes LAN hosts from the trust list.
     *
     * <p>Refused unless the MAC filter mode is 2 (trust list): the mode is read first, and in any
     * other mode, or when it cannot be read, nothing is changed and the array is not even read.
     * In trust-list mode all entries are handed to the platform in one call, which removes those
     * on the list, and the mode is then set to 2 again. On the default simulated gateway the mode
     * is 1, so this method answers -1 there until the mode is set to 2.
     *
     * @param macs the hosts' MAC addresses (see the class comment for how the array is read)
     * @return the platform's result of the removal as it came: 0 success, non-zero failure; -1
     *         when the filter is not in trust-list mode, when the mode cannot be read, when no
     *         working memory could be had, or when the virtual machine could not provide an
     *         element's text
     */
    public native int deleteLANHostFromTrustListJni(String[] macs);
}
