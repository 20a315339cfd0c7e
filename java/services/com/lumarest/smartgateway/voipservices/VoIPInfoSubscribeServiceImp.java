package com.lumarest.smartgateway.voipservices;

/**
 * Registers and withdraws a subscriber's interest in the gateway's VoIP events, such as
 * "NOTIFY_VOICE_CALL_INFO" (call information).
 *
 * <p>Both methods always return 0: whether the gateway took the change is not visible to
 * Java. The subscriber text of every call is deliberately never given back to the Java
 * virtual machine: the copy of the text that the virtual machine makes for each call is never
 * freed, so every call leaves a few bytes behind in the process; a bundle should subscribe
 * once, not in a loop. A library built with its hardened profile behaves exactly the same. The
 * class loads {@code libbundle_sc.so} when it is first used.
 */
public class VoIPInfoSubscribeServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Subscribes a subscriber to VoIP events of the gateway.
     *
     * <p>The event names are joined with "," into one list, as given (no spaces, quotes or
     * checks are added), and handed to the gateway with the subscriber. Without any event
     * the subscription is for "NOTIFY_VOICE_CALL_INFO".
     *
     * @param subscriber the name of the party that subscribes, passed on as given; null is
     *                   passed on as the empty text. Never given back to the virtual machine
     *                   (see the class description)
     * @param events the names of the events to subscribe to, for example
     *               {@code {"NOTIFY_VOICE_CALL_INFO"}}; the joined list holds at most 511
     *               characters and is cut there. Null, an empty array or a single empty
     *               (or null) name subscribes to "NOTIFY_VOICE_CALL_INFO"; a null element
     *               joins as an empty name
     * @return always 0, whatever the gateway answered
     * @example <pre>{@code
     * subscribeVoIPEventJni "bundle.voip.demo" ["NOTIFY_VOICE_CALL_INFO"]
     * 0
     * }</pre>
     */
    public native int subscribeVoIPEventJni(String subscriber, String[] events);

    /**
     * Withdraws a subscriber's interest in VoIP events of the gateway.
     *
     * <p>The event names are joined with "," into one list, as given, and handed to the
     * gateway with the subscriber. Without any event the withdrawal is for
     * "NOTIFY_VOICE_CALL_INFO".
     *
     * @param subscriber the name the subscriber subscribed with, passed on as given; null is
     *                   passed on as the empty text. Never given back to the virtual machine
     *                   (see the class description)
     * @param events the names of the events to withdraw; the joined list holds at most 511
     *               characters and is cut there. Null, an empty array or a single empty
     *               (or null) name withdraws "NOTIFY_VOICE_CALL_INFO"; a null element joins
     *               as an empty name
     * @return always 0, whatever the gateway answered
     * @example <pre>{@code
     * unSubscribeVoIPEventJni "bundle.voip.demo" ["NOTIFY_VOICE_CALL_INFO"]
     * 0
     * }</pre>
     */
    public native int unSubscribeVoIPEventJni(String subscriber, String[] events);
}
