package com.lumarest.smartgateway.addressservices;

/**
 * Lists the port-mapping (virtual server) rules of the gateway's WAN connections.
 *
 * <p>The list is read from the gateway's configuration tree, where
 * {@link PortMappingConfigServiceImp} writes the rules. The class loads
 * {@code libbundle_sc.so} when it is first used.
 *
 * <p>The method runs on the calling thread and returns as soon as the configuration tree has
 * been read; it resolves no names and runs no commands.
 */
public class PortMappingQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Lists the port-mapping rules of every WAN connection except the management one.
     *
     * <p>A connection whose display name contains "TR069" is left out, and so is a connection
     * without rules. The texts come from the configuration tree and are placed in the reply
     * without JSON escaping (a library built with its hardened profile escapes them).
     *
     * @return a JSON object: "Result" (number, 0), then, after a comma and a blank, "List"
     *         (array, one object per connection that has rules, in the gateway's order of
     *         connections). Each connection object has "WANName" (quoted text: the WAN index,
     *         the service, "R" for a routed or "B" for a bridged connection and the VLAN ID
     *         joined as "2_INTERNET_R_VID_41"; without a tagged VLAN the name ends in "_VID_")
     *         and "MapList" (array, one object per rule, by port-mapping index). Each rule
     *         object has "PortMappingIndex" (bare number, 1 to 10, the index that delete and
     *         switch take), "PortMappingEnabled" (quoted text, "TRUE" or "FALSE"),
     *         "ExternalPort" and "InternalPort" (bare numbers), "PortMappingProtocol" (quoted
     *         text, "TCP" or "UDP") and "InternalClient" (quoted text, the LAN host as it was
     *         given when the rule was added, at most 31 bytes). With no rules the reply is
     *         {@code {"Result":0, "List":[]}}. Failure reply:
     *         {@code {"Result":-1,"FailReason":"No enough memory"}} when the reply cannot be
     *         allocated. The reply {@code {"Result":-1,"FailReason":"No Valid WAN"}} belongs to
     *         the interface too but does not occur: at most 32 WAN connections are read.
     * @example <pre>{@code
     * getPortMappingInfoJni
     * {"Result":0, "List":[{"WANName":"2_INTERNET_R_VID_41","MapList":[{"PortMappingIndex":1,"PortMappingEnabled":"TRUE","ExternalPort":8080,"InternalPort":80,"PortMappingProtocol":"TCP","InternalClient":"192.168.1.20"},{"PortMappingIndex":2,"PortMappingEnabled":"FALSE","ExternalPort":3074,"InternalPort":3074,"PortMappingProtocol":"UDP","InternalClient":"192.168.1.33"}]}]}
     * }</pre>
     */
    public native String getPortMappingInfoJni();
}
