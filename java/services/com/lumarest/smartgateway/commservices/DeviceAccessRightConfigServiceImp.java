package com.lumarest.smartgateway.commservices;

/**
 * Sets who may use the gateway's FTP, web (HTTP) and Samba services: the access right level of
 * each service, anonymous FTP access, the FTP and Samba user accounts and the web user's
 * password.
 *
 * <p>Every method returns 0 on success and -1 on failure; the reason of a failure is not
 * reported (the gateway's own code is not passed on). What each right level 0 to 3 grants is
 * the gateway's own. User names and passwords travel in clear; a null text is refused like an
 * empty one. The debug trace shows return codes only, so a library built with its hardened
 * profile behaves exactly the same. The query side is {@link DeviceAccessRightQueryServiceImp}.
 * The class loads {@code libbundle_sc.so} when it is first used.
 */
public class DeviceAccessRightConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Sets the access right level of the FTP service and whether anonymous FTP access is
     * allowed.
     *
     * @param right the FTP right level, 0 to 3; any other value (negative values included) is
     *              refused without asking the gateway
     * @param anonymous true to allow anonymous access, false to refuse it
     * @return 0 when the gateway took the setting; -1 when the level is outside 0 to 3 or the
     *         gateway refused it
     * @example <pre>{@code
     * setFTPRightJni 3 true
     * 0
     * }</pre>
     */
    public native int setFTPRightJni(int right, boolean anonymous);

    /**
     * Sets the access right level of the gateway's web (HTTP) service.
     *
     * @param right the web right level, 0 to 3; any other value (negative values included) is
     *              refused without asking the gateway
     * @return 0 when the gateway took the level; -1 when the level is outside 0 to 3 or the
     *         gateway refused it
     * @example <pre>{@code
     * setHTTPRightJni 2
     * 0
     * }</pre>
     */
    public native int setHTTPRightJni(int right);

    /**
     * Accepts a right level for the Samba service and changes nothing.
     *
     * <p>The Samba service has no settable right level on the gateway: this method asks the
     * gateway nothing and always reports success. It is kept so on purpose.
     *
     * @param right ignored; any value
     * @return always 0
     * @example <pre>{@code
     * setSambaRightJni 3
     * 0
     * }</pre>
     */
    public native int setSambaRightJni(int right);

    /**
     * Adds a user account to the FTP service.
     *
     * <p>Both texts are read before anything is decided; the gateway is asked only when both
     * are present and non-empty.
     *
     * @param userName the account's user name; null or empty is refused. The gateway reports
     *                 names of up to 255 characters and keeps at most six FTP accounts
     * @param password the account's password in clear; null or empty is refused. Up to 255
     *                 characters
     * @return 0 when the gateway added the account; -1 when a text is null or empty (the
     *         gateway is not asked) or the gateway refused the account
     * @example <pre>{@code
     * addFTPAccountJni "carol" "Ftp-c4rol"
     * 0
     * }</pre>
     */
    public native int addFTPAccountJni(String userName, String password);

    /**
     * Deletes one user account of the FTP service.
     *
     * @param userName the user name of the account to delete; null or empty is refused
     * @return 0 when the gateway deleted the account; -1 when the name is null or empty (the
     *         gateway is not asked) or the gateway refused
     * @example <pre>{@code
     * deleteFTPAccountJni "anna"
     * 0
     * }</pre>
     */
    public native int deleteFTPAccountJni(String userName);

    /**
     * Deletes every user account of the FTP service.
     *
     * @return 0 when the gateway deleted the accounts, -1 when it refused
     * @example <pre>{@code
     * deleteAllFTPAccountJni
     * 0
     * }</pre>
     */
    public native int deleteAllFTPAccountJni();

    /**
     * Sets the password of the web (HTTP) user.
     *
     * @param password the new password in clear, up to 255 characters; null or empty is
     *                 refused
     * @return 0 when the gateway took the password; -1 when the text is null or empty (the
     *         gateway is not asked) or the gateway refused it
     * @example <pre>{@code
     * setHTTPUserPasswordJni "Web-2027pass"
     * 0
     * }</pre>
     */
    public native int setHTTPUserPasswordJni(String password);

    /**
     * Adds a user account to the Samba service.
     *
     * <p>Both texts are read before anything is decided; the gateway is asked only when both
     * are present and non-empty.
     *
     * @param userName the account's user name; null or empty is refused. The gateway reports
     *                 names of up to 255 characters and keeps at most six Samba accounts
     * @param password the account's password in clear; null or empty is refused. Up to 255
     *                 characters
     * @return 0 when the gateway added the account; -1 when a text is null or empty (the
     *         gateway is not asked) or the gateway refused the account
     * @example <pre>{@code
     * addSambaAccountJni "family" "sh4re-all"
     * 0
     * }</pre>
     */
    public native int addSambaAccountJni(String userName, String password);

    /**
     * Deletes one user account of the Samba service.
     *
     * @param userName the user name of the account to delete; null or empty is refused
     * @return 0 when the gateway deleted the account; -1 when the name is null or empty (the
     *         gateway is not asked) or the gateway refused
     * @example <pre>{@code
     * deleteSambaAccountJni "media"
     * 0
     * }</pre>
     */
    public native int deleteSambaAccountJni(String userName);

    /**
     * Deletes every user account of the Samba service.
     *
     * @return 0 when the gateway deleted the accounts, -1 when it refused
     * @example <pre>{@code
     * deleteAllSambaAccountJni
     * 0
     * }</pre>
     */
    public native int deleteAllSambaAccountJni();
}
