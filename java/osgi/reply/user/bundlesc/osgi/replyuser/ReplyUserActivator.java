package bundlesc.osgi.replyuser;

import bundlesc.reply.Reply;
import bundlesc.reply.ReplyReader;
import bundlesc.sim.GatewaySim;
import com.google.gson.JsonArray;
import com.google.gson.JsonObject;
import com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import com.lumarest.smartgateway.lanservices.WlanConfigServiceImp;
import com.lumarest.smartgateway.lanservices.WlanQueryServiceImp;
import java.util.ArrayList;
import java.util.Hashtable;
import java.util.List;
import java.util.function.Function;
import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;
import org.osgi.framework.ServiceRegistration;

/**
 * A bundle that reads the natives' replies with the reply reader bundle, as a bundle developer
 * does: it imports bundlesc.reply, com.google.gson and the service packages. It registers a
 * {@code Function<String, Object>} with the property "bundlesc.probe" set to its symbolic name;
 * "read" loads the default simulated gateway, reads a JSON reply, a plain text and a reply with
 * objects back to back, and answers one line per reply: "method form repairs what-was-read".
 */
public final class ReplyUserActivator implements BundleActivator {
    private ServiceRegistration<?> registration;

    @Override
    public void start(BundleContext ctx) {
        Hashtable<String, Object> props = new Hashtable<String, Object>();
        props.put("bundlesc.probe", ctx.getBundle().getSymbolicName());
        Function<String, Object> service = this::apply;
        registration = ctx.registerService(Function.class.getName(), service, props);
    }

    @Override
    public void stop(BundleContext ctx) {
        registration.unregister();
    }

    synchronized Object apply(String command) {
        if (!command.equals("read")) {
            return "unknown command " + command;
        }
        List<String> lines = new ArrayList<String>();
        if (GatewaySim.loadDefault() != 0) {
            lines.add("the default simulated gateway did not load");
            return lines;
        }
        Reply device = ReplyReader.read(new DeviceInfoQueryServiceImp().getDeviceInfoJni());
        JsonObject info = device.object();
        lines.add("getDeviceInfoJni " + device.form() + " " + device.repairs() + " Vendor="
                + info.get("Vendor").getAsString() + " RamSize=" + info.get("RamSize").getAsInt());

        Reply name = ReplyReader.read(new LANHostsInfoQueryServiceImp().getGatewayNameJni());
        lines.add("getGatewayNameJni " + name.form() + " " + name.repairs() + " " + name.tree().getAsString());

        new WlanConfigServiceImp().addWLANGuestSSIDJni(6);
        Reply guests = ReplyReader.read(new WlanQueryServiceImp().getGuestSSIDInfoJni());
        JsonArray list = guests.object().getAsJsonArray("List");
        StringBuilder indexes = new StringBuilder();
        for (int i = 0; i < list.size(); i++) {
            indexes.append(i == 0 ? "" : ",").append(list.get(i).getAsJsonObject().get("SSIDIndex").getAsInt());
        }
        lines.add("getGuestSSIDInfoJni " + guests.form() + " " + guests.repairs() + " SSIDIndex=" + indexes);
        return lines;
    }
}
