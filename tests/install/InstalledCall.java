import java.lang.reflect.Method;

/**
 * Calls one native of a service class and prints its reply on one line, e.g.
 * {@code java -cp bundle_sc-services.jar InstalledCall.java
 * com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp getDeviceInfoJni}.
 * Run from source by the install test against the installed library and simulator.
 */
public class InstalledCall {
    public static void main(String[] args) throws Exception {
        Class<?> service = Class.forName(args[0]);
        Object instance = service.getDeclaredConstructor().newInstance();
        Method method = service.getMethod(args[1]);
        System.out.println("reply: " + method.invoke(instance));
    }
}
