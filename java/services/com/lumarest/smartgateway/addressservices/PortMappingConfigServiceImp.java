package com.lumarest.smartgateway.addressservices;

/** Port-mapping rules of a WAN connection: 0 done, -1 refused, -2 no free rule left. */
public class PortMappingConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addPortMappingJni(int wanIndex, int externalPort, int internalPort, String protocol,
            String internalClient);

    /** portMappingIndex is 1-based, as the query lists it. */
    public native int deletePortMappingJni(int wanIndex, int portMappingIndex);

    public native int setPortMappingSwitchJni(int wanIndex, int portMappingIndex, boolean enable);
}
