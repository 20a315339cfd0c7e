package com.example.lanhosts;

import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;

import com.google.gson.Gson;
import com.google.gson.JsonElement;
import com.google.gson.JsonObject;
import com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp;
import com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;

/**
 * A small gateway service: when started it lists the LAN hosts that are online and opens a
 * port mapping from the WAN to the first of them (external TCP port 8443 to its port 443),
 * printing what it did; when stopped it closes that mapping again.
 */
public final class LanHostsActivator implements BundleActivator {

    /** The WAN connection that carries the mapping (the gateway's routed internet connection). */
    static final int WAN_INDEX = 2;
    static final int EXTERNAL_PORT = 8443;
    static final int INTERNAL_PORT = 443;

    private final Gson gson = new Gson();
    private int openedIndex;

    @Override
    public void start(BundleContext context) {
        LANHostsInfoQueryServiceImp lan = new LANHostsInfoQueryServiceImp();
        say("gateway " + lan.getGatewayNameJni());
        JsonObject hosts = gson.fromJson(lan.getLANHostInfoByClassJni("online"), JsonObject.class);
        if (hosts == null || hosts.get("Result").getAsInt() != 0) {
            say("cannot list the LAN hosts: " + hosts);
            return;
        }
        String firstAddress = null;
        say(hosts.getAsJsonArray("List").size() + " LAN hosts online:");
        for (JsonElement e : hosts.getAsJsonArray("List")) {
            JsonObject host = e.getAsJsonObject();
            String address = host.get("IP").getAsString().split(",")[0];
            say("  " + host.get("MAC").getAsString() + "  " + address + "  " + host.get("DhcpName").getAsString()
                    + " on " + host.get("ConnectInterface").getAsString());
            if (firstAddress == null && address.indexOf('.') > 0) {
                firstAddress = address;
            }
        }
        if (firstAddress == null) {
            say("no IPv4 host to open a port to");
            return;
        }
        int rc = new PortMappingConfigServiceImp().addPortMappingJni(WAN_INDEX, EXTERNAL_PORT, INTERNAL_PORT,
                "TCP", firstAddress);
        say("port mapping TCP " + EXTERNAL_PORT + " -> " + firstAddress + ":" + INTERNAL_PORT + " on WAN "
                + WAN_INDEX + ": " + (rc == 0 ? "opened" : "refused (" + rc + ")"));
        if (rc == 0) {
            openedIndex = findMapping(firstAddress);
        }
    }

    @Override
    public void stop(BundleContext context) {
        if (openedIndex > 0) {
            int rc = new PortMappingConfigServiceImp().deletePortMappingJni(WAN_INDEX, openedIndex);
            say("port mapping " + openedIndex + " on WAN " + WAN_INDEX + ": " + (rc == 0 ? "closed" : "not closed (" + rc + ")"));
            openedIndex = 0;
        }
    }

    /** The index the gateway gave the mapping this bundle opened, 0 when it is not listed. */
    private int findMapping(String address) {
        JsonObject info = gson.fromJson(
                new PortMappingQueryServiceImp().getPortMappingInfoJni(),
                JsonObject.class);
        for (JsonElement wan : info.getAsJsonArray("List")) {
            for (JsonElement rule : wan.getAsJsonObject().getAsJsonArray("MapList")) {
                JsonObject r = rule.getAsJsonObject();
                if (r.get("ExternalPort").getAsInt() == EXTERNAL_PORT && r.get("InternalPort").getAsInt() == INTERNAL_PORT
                        && r.get("InternalClient").getAsString().equals(address)) {
                    return r.get("PortMappingIndex").getAsInt();
                }
            }
        }
        return 0;
    }

    private static void say(String line) {
        System.out.println("lanhosts: " + line);
    }
}
