package com.lumarest.smartgateway.voipservices;

/**
 * The gateway's analogue telephone ports (POTS lines): how many there are, and the phone
 * number and line status of each, as one JSON reply. A library built with its hardened profile
 * differs as {@link #getPOTSInfoJni()} says. The class loads {@code libbundle_sc.so} when it is
 * first used.
 */
public class VoIPInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Lists the gateway's POTS lines with the phone number and line status of each.
     *
     * <p>The gateway is asked for its number of lines, then for the information of each line,
     * numbered from 1. A line may carry several phone numbers: each gives its own object, all
     * with the same "POTSIndex". A line the gateway has no information for is listed once,
     * with an empty "PhoneNumber" and the status "UNKNOWN". Phone numbers are placed in the
     * reply unescaped. The reply holds at most 1023 characters (about a dozen objects): a
     * longer one is cut there and is then not valid JSON. A library built with its hardened
     * profile escapes the phone numbers and answers {@code {"Result":-1}} instead of a cut
     * reply.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, always
     *         0), "POTSNum" (bare number, the number of lines) and "Info" (an array, empty when
     *         the gateway has no line, of objects in line order with the members "POTSIndex"
     *         (bare number, the line number from 1), "PhoneNumber" (quoted text, up to 31
     *         characters, possibly empty) and "LineStatus" (quoted text, one of "SUCCESS",
     *         "IADERROR", "NOROUTE", "NORESPONSE", "ACCOUNTERR" and "UNKNOWN"; a status code
     *         the library does not know reads as "UNKNOWN")). There is no failure reply.
     * @example <pre>{@code
     * getPOTSInfoJni
     * {"Result":0,"POTSNum":2,"Info":[{"POTSIndex":1,"PhoneNumber":"02150001001","LineStatus":"SUCCESS"},{"POTSIndex":2,"PhoneNumber":"02150001002","LineStatus":"ACCOUNTERR"}]}
     * }</pre>
     * @oddity CUT_SHORT A list longer than the reply's 1023 characters is cut there.
     */
    public native String getPOTSInfoJni();
}
