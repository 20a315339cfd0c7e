package com.lumarest.smartgateway.commservices;

/**
 * The gateway's registration with the operator's network by password: submitting a
 * registration and reading its state (status, result, services provisioned, the limit and
 * times counters, the province).
 *
 * <p>The texts and numbers submitted and the status and result codes reported are the
 * gateway's own; they are passed through unchanged. A library built with its hardened profile
 * escapes the texts of {@link #getPasswordRegistrationInfoJni()}; nothing else differs there.
 * The class loads {@code libbundle_sc.so} when it is first used.
 */
public class RegistrationServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Submits a registration with the operator's network.
     *
     * <p>The two texts and two numbers go to the gateway unchanged, in this order; which
     * credential each carries is the gateway's own. Each text is copied and given back before
     * the gateway is asked.
     *
     * @param text1 the first registration text; up to 127 characters are passed on, a longer
     *              text is cut. Null gives -1 without asking the gateway (text2 is then not
     *              read)
     * @param number1 the first registration number, passed on unchanged
     * @param number2 the second registration number, passed on unchanged
     * @param text2 the second registration text; up to 63 characters are passed on, a longer
     *              text is cut. Null gives -1 without asking the gateway
     * @return the gateway's own result code, unchanged (0 when the registration was
     *         accepted); -1 when a text is null
     * @example <pre>{@code
     * setPasswordRegistrationJni "LOID2026001" 0 0 "pass1234"
     * 0
     * }</pre>
     */
    public native int setPasswordRegistrationJni(String text1, int number1, int number2, String text2);

    /**
     * Reads the state of the gateway's registration with the operator's network.
     *
     * <p>Every number of the reply is a quoted JSON string, not a bare number. The province is
     * the one of the registration record when it has one, otherwise the gateway's own
     * province. Texts are placed in the reply unescaped (escaped by a library built with its
     * hardened profile). If the gateway cannot report, its
     * members read as "0" and "" and the reply still carries "Result":0.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, always
     *         0), "Status" (quoted decimal, the registration status code), "RegisterResult"
     *         (quoted decimal, the registration result code), "ServiceNum" (quoted decimal, the
     *         number of services provisioned), "ServiceName" (quoted text, up to 63
     *         characters), "Limit" (quoted decimal, the limit counter), "Times" (quoted
     *         decimal, the times counter) and "Province" (quoted text, up to 63 characters,
     *         possibly empty). There is no failure reply.
     * @example <pre>{@code
     * getPasswordRegistrationInfoJni
     * {"Result":0,"Status":"0","RegisterResult":"0","ServiceNum":"0","ServiceName":"","Limit":"10","Times":"0","Province":"Guangdong"}
     * }</pre>
     */
    public native String getPasswordRegistrationInfoJni();
}
