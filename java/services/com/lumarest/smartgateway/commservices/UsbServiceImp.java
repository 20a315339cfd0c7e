package com.lumarest.smartgateway.commservices;

/**
 * The gateway's USB devices: registering a listener for USB device events, locking, opening
 * and closing a device, moving bytes to and from a serial-type device and setting its line,
 * and listing the mounted storage volumes.
 *
 * <p>A device is named by its device id; an open device by the handle that
 * {@link #usbOpenJni(int)} returns. The library remembers the handle of the last open, in one
 * place shared by every caller in the process. While the file /tmp/usbapi_test exists on the
 * gateway (a test mode, decided afresh on every call), every method that takes a handle
 * ({@link #usbCloseJni(int)}, {@link #usbDataAvailableJni(int)}, {@link #usbReadJni(int,
 * byte[], int, int, int)}, {@link #usbWriteJni(int, byte[], int, int)} and
 * {@link #usbSetSerialJni(int, int, int, int, int, byte, boolean)}) ignores the handle given
 * and acts on the last opened one, so a caller that does not keep handles can still talk to
 * the device it opened last. With several threads opening devices at once, the last open wins.
 * What the device-type bits, the device ids and the serial settings mean is the gateway's own.
 * Only {@link #getStorageInfoJni()} differs in a library built with its hardened profile. The
 * class loads {@code libbundle_sc.so} when it is first used.
 */
public class UsbServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Registers a listener for the events of the USB device types of a mask.
     *
     * <p>Each set bit of the mask is registered with the gateway on its own, lowest bit first
     * (1, 2, 4, 8, then 16). The first refusal stops the walk: the bits registered before it
     * stay registered.
     *
     * @param listenerName the name under which the listener registers; null gives -1 without
     *                     asking the gateway
     * @param deviceTypeMask the device types to listen to, as an OR of the bits 1, 2, 4, 8 and
     *                       16: 1 to 31; any other value gives -1 without asking the gateway
     * @return 0 when every type of the mask was registered; -1 for a null name or a mask
     *         outside 1 to 31; otherwise the gateway's own non-zero code for the first type it
     *         refused, unchanged
     * @example <pre>{@code
     * usbRegisterJni "bundle.usb.demo" 5
     * 0
     * }</pre>
     */
    public native int usbRegisterJni(String listenerName, int deviceTypeMask);

    /**
     * Withdraws a listener's registration for USB device events.
     *
     * <p>The gateway is asked to withdraw the listener by its name alone; the mask is not
     * passed on.
     *
     * @param listenerName the name the listener registered with; null gives -1 without asking
     *                     the gateway
     * @param deviceTypeMask not used; any value
     * @return 0 when the gateway withdrew the listener; -1 for a null name or when the gateway
     *         refused
     */
    public native int usbUnregisterJni(String listenerName, int deviceTypeMask);

    /**
     * Locks a USB device for the caller's use.
     *
     * @param devId the device id
     * @return 0 when the gateway locked the device, -1 when it refused
     * @example <pre>{@code
     * usbLockJni 1
     * 0
     * }</pre>
     */
    public native int usbLockJni(int devId);

    /**
     * Unlocks a USB device locked with {@link #usbLockJni(int)}.
     *
     * @param devId the device id
     * @return 0 when the gateway unlocked the device, -1 when it refused
     * @example <pre>{@code
     * usbUnlockJni 1
     * 0
     * }</pre>
     */
    public native int usbUnlockJni(int devId);

    /**
     * Opens a USB device and returns its handle.
     *
     * <p>Every open, successful or not, replaces the last opened handle that the test mode
     * uses (see the class description), with -1 when the device did not open.
     *
     * @param devId the device id
     * @return the handle of the open device, to pass to the other methods; -1 when the
     *         gateway gave no handle (the device could not be opened)
     * @example <pre>{@code
     * usbOpenJni 1
     * 1
     * }</pre>
     */
    public native int usbOpenJni(int devId);

    /**
     * Closes an open USB device.
     *
     * @param handle the handle {@link #usbOpenJni(int)} returned (the last opened handle is
     *               used instead in test mode)
     * @return 0 when the gateway closed the device, -1 when it refused (for example for a
     *         handle that is not open)
     */
    public native int usbCloseJni(int handle);

    /**
     * Tells whether bytes are waiting to be read from an open USB device.
     *
     * @param handle the handle {@link #usbOpenJni(int)} returned (the last opened handle is
     *               used instead in test mode)
     * @return 1 when bytes are waiting; -1 when none are, or the gateway cannot tell (never 0)
     */
    public native int usbDataAvailableJni(int handle);

    /**
     * Reads bytes from an open USB device into a Java array.
     *
     * <p>The gateway writes the bytes it reads into {@code buffer} from {@code offset} on; they
     * are in the array when the call returns. Offset and count are NOT checked against the
     * array's length: the caller must keep {@code offset + count} within the array. The call
     * blocks the calling thread while the gateway waits for bytes, up to the timeout.
     *
     * @param handle the handle {@link #usbOpenJni(int)} returned (the last opened handle is
     *               used instead in test mode)
     * @param buffer the array that receives the bytes; null gives -1 without asking the
     *               gateway
     * @param offset the index in {@code buffer} of the first byte to receive, 0 or more
     * @param count the largest number of bytes to read; {@code offset + count} must not
     *              exceed the array's length
     * @param timeout how long the gateway may wait for bytes, in the gateway's own unit,
     *                passed on unchanged
     * @return the gateway's own result, unchanged: the number of bytes read, or a negative
     *         code when the read failed; -1 for a null array
     */
    public native int usbReadJni(int handle, byte[] buffer, int offset, int count, int timeout);

    /**
     * Sends bytes of a Java array to an open USB device.
     *
     * <p>The {@code length} bytes of {@code buffer} starting at {@code offset} are first copied
     * to the start of the array, then sent from there. So a write from a non-zero offset
     * leaves the first {@code length} bytes of the Java array replaced by the bytes sent; this
     * side effect is part of the interface. An offset and length outside the array make the
     * call end with an {@code ArrayIndexOutOfBoundsException}, and the gateway is then handed
     * the array's first {@code length} bytes unchanged.
     *
     * @param handle the handle {@link #usbOpenJni(int)} returned (the last opened handle is
     *               used instead in test mode)
     * @param buffer the array holding the bytes to send; null gives -1 without asking the
     *               gateway
     * @param offset the index in {@code buffer} of the first byte to send, 0 or more
     * @param length the number of bytes to send; {@code offset + length} must not exceed the
     *               array's length
     * @return the gateway's own result, unchanged: the number of bytes sent, or a negative
     *         code when the write failed; -1 for a null array
     */
    public native int usbWriteJni(int handle, byte[] buffer, int offset, int length);

    /**
     * Sets the line of an open serial-type USB device.
     *
     * <p>The six settings go to the gateway as six unsigned 32-bit words, in this order; what
     * each one sets is the gateway's own.
     *
     * @param handle the handle {@link #usbOpenJni(int)} returned (the last opened handle is
     *               used instead in test mode)
     * @param setting1 the first setting, passed on unchanged
     * @param setting2 the second setting, passed on unchanged
     * @param setting3 the third setting, passed on unchanged
     * @param setting4 the fourth setting, passed on unchanged
     * @param setting5 the fifth setting, passed on as its unsigned byte value (0 to 255)
     * @param setting6 the sixth setting: true is passed on as 1, false as 0
     * @return 0 when the gateway set the line, -1 when it refused (for example for a handle
     *         that is not open)
     */
    public native int usbSetSerialJni(int handle, int setting1, int setting2, int setting3,
            int setting4, byte setting5, boolean setting6);

    /**
     * Lists the storage volumes mounted on the gateway's USB ports.
     *
     * <p>The sizes are placed in the reply as the decimal texts the gateway gives, in the
     * gateway's own unit, and so read as bare JSON numbers; the path is placed unescaped. The
     * reply holds at most 4095 characters: a longer one is cut there and is then not valid
     * JSON. A library built with its hardened profile escapes the path, places a size only when
     * it is a JSON number, and answers {@code {"Result":-1,"List":[]}} instead of a cut reply
     * or one with a size that is not a number (so no gateway text can add a member).
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, 0) and
     *         "List" (an array, empty when nothing is mounted, of one object per volume in the
     *         gateway's order, with the members "storagePath" (quoted text, the mount path, up
     *         to 511 characters), "totalStorage" (bare number, the volume's size) and
     *         "validStorage" (bare number, the free space)). When the gateway cannot report,
     *         the reply is exactly {@code {"Result":-1,"List":[]}}.
     * @example <pre>{@code
     * getStorageInfoJni
     * {"Result":0,"List":[{"storagePath":"/mnt/usb1_1","totalStorage":15512064,"validStorage":9830400},{"storagePath":"/mnt/usb2_1","totalStorage":61865984,"validStorage":61410304}]}
     * }</pre>
     * @oddity MISSING_VALUE A volume whose size the gateway leaves empty gives {@code "totalStorage":,}.
     * @oddity BARE_VALUE The sizes go in as the gateway's texts, so a size that is no number (e.g.
     *     {@code n/a}) is no JSON value.
     */
    public native String getStorageInfoJni();
}
