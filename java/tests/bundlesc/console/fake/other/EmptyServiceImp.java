package bundlesc.console.fake.other;

/** A service class without natives: listed as nothing, rejected when called. */
public class EmptyServiceImp {

    public String plain() {
        return "plain";
    }
}
