package com.lumarest.smartgateway.transferservices;

/**
 * Sets and clears the VLAN binding of one of the gateway's LAN interfaces.
 *
 * <p>A binding ties the traffic of a LAN port or wireless network to VLANs of the access
 * side; the gateway platform keeps it, and
 * {@link TransferQueryServiceImp#getVLANBindInfoJni} lists the bindings in force. Each method
 * is one call of the platform, whose status is handed back unchanged. The methods keep no
 * state and may be called from any thread. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 */
public class VLANBindConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Binds a LAN interface to VLANs, replacing its binding.
     *
     * <p>Both texts are limited to 31 characters. A longer text is refused, and its
     * characters are deliberately never given back to the virtual machine (its copy stays
     * allocated), so check the lengths in Java before calling.
     *
     * @param lanInterface the interface name as the binding list shows it: "LAN1" to "LAN4"
     *            for the Ethernet ports, "SSID1" to "SSID5" for the wireless networks; at most
     *            31 characters; null or a longer text gives -1 without asking the gateway
     * @param bind the binding text in the gateway's own form (VLAN pairs such as
     *            {@code 100/10}), which the gateway checks; at most 31 characters; null or a
     *            longer text gives -1 without asking the gateway
     * @return the gateway's answer unchanged (0 when the binding is set, a negative value when
     *         the gateway refuses the interface or the binding); -1 for a null or over-long
     *         text
     * @example <pre>{@code
     * setVLANBindJni "LAN2" "300/30"
     * 0
     * }</pre>
     */
    public native int setVLANBindJni(String lanInterface, String bind);

    /**
     * Removes the VLAN binding of a LAN interface.
     *
     * <p>The interface name is limited to 31 characters. A longer text is refused, and its
     * characters are deliberately never given back to the virtual machine (its copy stays
     * allocated).
     *
     * @param lanInterface the interface name: "LAN1" to "LAN4" or "SSID1" to "SSID5"; at most
     *            31 characters; null or a longer text gives -1 without asking the gateway
     * @return the gateway's answer unchanged (0 when the binding is removed, a negative value
     *         when the gateway refuses the interface); -1 for a null or over-long text
     * @example <pre>{@code
     * clearVLANBindJni "LAN1"
     * 0
     * }</pre>
     */
    public native int clearVLANBindJni(String lanInterface);
}
