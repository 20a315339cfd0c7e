package com.lumarest.smartgateway.commservices;

/**
 * Reports who may use the gateway's FTP, web (HTTP) and Samba services: the right level of
 * each service, anonymous FTP access and the user accounts, as JSON replies.
 *
 * <p>Account passwords are returned in clear. Names and passwords are placed in the replies
 * as the gateway gives them, without JSON escaping, so a quote or a backslash in one of them
 * reaches Java unescaped. While the debug trace is on (the file /tmp/brelo_debug exists) the
 * replies, passwords included, are also printed on the gateway's standard output. A library
 * built with its hardened profile escapes the names and passwords, prints {@code ******} in
 * the trace instead of these replies, and answers a list cut at its buffer with the failure
 * reply. The setting side is {@link DeviceAccessRightConfigServiceImp}. The class loads
 * {@code libbundle_sc.so} when it is first used.
 */
public class DeviceAccessRightQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the FTP service's right level, anonymous access and user accounts.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, 0),
     *         "Right" (bare number, the FTP right level 0 to 3), "Anonymous" (quoted text,
     *         "TRUE" when anonymous access is allowed, else "FALSE") and "AccountList" (an
     *         array, empty when there is no account, of at most six objects in the gateway's
     *         order, each with "UserName" and "Password", quoted texts of up to 255 characters,
     *         the password in clear). When the gateway cannot report, or memory for its record
     *         cannot be had, the reply is exactly
     *         {@code {"Result":-1,"Right":0,"Anonymous":"FALSE","AccountList":[]}}.
     * @example <pre>{@code
     * getFTPRightInfoJni
     * {"Result":0,"Right":2,"Anonymous":"FALSE","AccountList":[{"UserName":"anna","Password":"ftp4anna"},{"UserName":"backup","Password":"Bk-2026!"}]}
     * }</pre>
     */
    public native String getFTPRightInfoJni();

    /**
     * Reads the web (HTTP) service's right level and the web user's password.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, 0),
     *         "Right" (bare number, the web right level 0 to 3) and "Password" (quoted text, the
     *         web user's password in clear, up to 255 characters). When the gateway cannot
     *         report, the reply is exactly {@code {"Result":-1,"Right":0,"Password":""}}.
     * @example <pre>{@code
     * getHTTPRightInfoJni
     * {"Result":0,"Right":1,"Password":"webuser123"}
     * }</pre>
     */
    public native String getHTTPRightInfoJni();

    /**
     * Reads the Samba service's user accounts.
     *
     * <p>The Samba service has no right level and no anonymous access on the gateway: its
     * reply has the shape of the FTP reply, with "Right" always 0 and "Anonymous" always
     * "FALSE". These two fixed members are part of the interface.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, 0),
     *         "Right" (bare number, always 0), "Anonymous" (quoted text, always "FALSE") and
     *         "AccountList" (an array, empty when there is no account, of at most six objects in
     *         the gateway's order, each with "UserName" and "Password", quoted texts of up to
     *         255 characters, the password in clear). When the gateway cannot report, or memory
     *         for its record cannot be had, the reply is exactly
     *         {@code {"Result":-1,"Right":0,"Anonymous":"FALSE","AccountList":[]}}.
     * @example <pre>{@code
     * getSambaRightInfoJni
     * {"Result":0,"Right":0,"Anonymous":"FALSE","AccountList":[{"UserName":"media","Password":"m3dia-share"}]}
     * }</pre>
     */
    public native String getSambaRightInfoJni();
}
