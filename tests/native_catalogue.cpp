// Every native of the library, as the unit tests, fuzz targets and fault tests call them:
// class, method, Java parameters and a uniform way to call it. Kept equal to the export map
// by NativeCatalogue.MatchesExportMap.
#include "tests/native_catalogue.h"

extern "C" {
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getGatewayNameJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(JNIEnv *, jobject, jobjectArray);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByInterfaceJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getMacFilterModeJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostStatsJni(JNIEnv *, jobject, jobjectArray);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostSpeedLimitInfoJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setGatewayNameJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setLANHostNameJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_setLANHostSpeedLimitJni(JNIEnv *, jobject, jstring, jint, jint);
jstring Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_getLANHostSpeedJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_setMacFilterModeJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToBlackListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromBlackListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToStorageBlackListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromStorageBlackListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToTrustListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromTrustListJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSwitchJni(JNIEnv *, jobject, jint, jboolean);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDAdvertisementJni(JNIEnv *, jobject, jint, jboolean);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANHardwareSwitchJni(JNIEnv *, jobject, jstring, jboolean);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni(JNIEnv *, jobject, jint, jstring, jstring, jstring);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANStandardJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioChannelJni(JNIEnv *, jobject, jstring, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioPowerJni(JNIEnv *, jobject, jstring, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioFrequencyWidthJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_startWLANWPSJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_stopWLANWPSJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_addWLANGuestSSIDJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_deleteWLANGuestSSIDJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestPortIsolationJni(JNIEnv *, jobject, jint, jboolean);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestDurationJni(JNIEnv *, jobject, jint, jint);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDInfoJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDStatsJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANWPSStatusJni(JNIEnv *, jobject, jint);
jboolean Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHardwareSwitchJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANRadioInfoJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHostInfoJni(JNIEnv *, jobject, jobjectArray);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getGuestSSIDInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetInfoJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetStatsJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetEnableJni(JNIEnv *, jobject, jint, jboolean);
jint Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetMaxBitRateJni(JNIEnv *, jobject, jint, jstring);
jint Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetDuplexModeJni(JNIEnv *, jobject, jint, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfPhyStatusJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfUpTimeJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfRegisterStatusJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getUplinkIfStatsJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatsJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWanIfBandwidthJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatusJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getInternetWANIndexJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_addWANIfJni(JNIEnv *, jobject, jstring, jstring, jstring);
jint Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_setWANIfJni(JNIEnv *, jobject, jint, jstring);
jint Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_deleteWANIfJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni(JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni(JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANHostIPJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANDHCPInfoJni(JNIEnv *, jobject, jstring, jstring, jstring, jint);
jstring Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANHostIPJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANDHCPInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(JNIEnv *, jobject, jint, jint, jint, jstring, jstring);
jint Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_deletePortMappingJni(JNIEnv *, jobject, jint, jint);
jint Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_setPortMappingSwitchJni(JNIEnv *, jobject, jint, jint, jboolean);
jstring Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceMACJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceUpTimeJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getOSGiInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getJVMInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getAPIVersionJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getCPUOccupancyRateJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getRAMOccupancyRateJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceManufacturerOUIJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceSerialNumberJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultWebPasswordJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1NameJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1PasswordJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbRegisterJni(JNIEnv *, jobject, jstring, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnregisterJni(JNIEnv *, jobject, jstring, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbLockJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnlockJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbOpenJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbCloseJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbDataAvailableJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbReadJni(JNIEnv *, jobject, jint, jbyteArray, jint, jint, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbWriteJni(JNIEnv *, jobject, jint, jbyteArray, jint, jint);
jint Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbSetSerialJni(JNIEnv *, jobject, jint, jint, jint, jint, jint, jbyte, jboolean);
jstring Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setFTPRightJni(JNIEnv *, jobject, jint, jboolean);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPRightJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setSambaRightJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addFTPAccountJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteFTPAccountJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllFTPAccountJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPUserPasswordJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addSambaAccountJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteSambaAccountJni(JNIEnv *, jobject, jstring);
jint Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllSambaAccountJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getFTPRightInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getSambaRightInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_setPasswordRegistrationJni(JNIEnv *, jobject, jstring, jint, jint, jstring);
jstring Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_getPasswordRegistrationInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_resetJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_setLedSwitchJni(JNIEnv *, jobject, jboolean);
jint Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_addTrafficMonitoringDestAddressJni(JNIEnv *, jobject, jobjectArray, jstring);
jint Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_deleteTrafficMonitoringDestAddressJni(JNIEnv *, jobject, jobjectArray, jstring);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_addMirrorRuleJni(JNIEnv *, jobject, jstring, jstring, jstring, jstring, jstring, jstring, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteMirrorRuleJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteAllMirrorRuleJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_getMirroRuleInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_addForwardRuleJni(JNIEnv *, jobject, jstring, jstring, jstring, jstring, jstring, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteForwardRuleJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteAllForwardRuleJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_getForwardRuleInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_addHTTPTrafficProcessRuleJni(JNIEnv *, jobject, jstring, jint, jstring, jstring, jobjectArray, jobjectArray, jobjectArray, jstring);
jint Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteHTTPTrafficProcessRuleJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteAllHTTPTrafficProcessRuleJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_addTrafficToFlowJni(JNIEnv *, jobject, jstring, jstring, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteTrafficFromFlowJni(JNIEnv *, jobject, jstring, jstring, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteAllTrafficFromFlowJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getTrafficInfoByFlowJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getStatsByFlowJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedByFlowJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setSpeedLimitByFlowJni(JNIEnv *, jobject, jint, jint, jint);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedLimitByFlowJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setDSCPRemarkByFlowJni(JNIEnv *, jobject, jint, jint);
jint Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getDSCPRemarkByFlowJni(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getVLANBindInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingStaticConfigInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingCurrentJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingStaticConfigInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingCurrentJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPTVStatusJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addLayer3ForwardingStaticJni(JNIEnv *, jobject, jstring, jstring, jstring, jstring);
jint Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addIPv6Layer3ForwardingStaticJni(JNIEnv *, jobject, jstring, jstring, jstring);
jint Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteLayer3ForwardingStaticJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteIPv6Layer3ForwardingStaticJni(JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_setVLANBindJni(JNIEnv *, jobject, jstring, jstring);
jint Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_clearVLANBindJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni(JNIEnv *, jobject, jstring, jstring, jstring);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOffJni(JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getVpnStatCmdJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(JNIEnv *, jobject, jobjectArray);
jint Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni(JNIEnv *, jobject, jobjectArray);
jstring Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_getPOTSInfoJni(JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_subscribeVoIPEventJni(JNIEnv *, jobject, jstring, jobjectArray);
jint Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_unSubscribeVoIPEventJni(JNIEnv *, jobject, jstring, jobjectArray);
}

namespace catalogue {
namespace {

Result call_0(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getGatewayNameJni(env, self));
}
Result call_1(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(env, self, a[0].a));
}
Result call_2(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByInterfaceJni(env, self, a[0].s));
}
Result call_3(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getMacFilterModeJni(env, self));
}
Result call_4(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(env, self, a[0].s));
}
Result call_5(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostStatsJni(env, self, a[0].a));
}
Result call_6(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostSpeedLimitInfoJni(env, self, a[0].a));
}
Result call_7(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setGatewayNameJni(env, self, a[0].s));
}
Result call_8(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setLANHostNameJni(env, self, a[0].s, a[1].s));
}
Result call_9(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_setLANHostSpeedLimitJni(env, self, a[0].s, a[1].i, a[2].i));
}
Result call_10(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_getLANHostSpeedJni(env, self, a[0].s));
}
Result call_11(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_setMacFilterModeJni(env, self, a[0].i));
}
Result call_12(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToBlackListJni(env, self, a[0].a));
}
Result call_13(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromBlackListJni(env, self, a[0].a));
}
Result call_14(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToStorageBlackListJni(env, self, a[0].a));
}
Result call_15(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromStorageBlackListJni(env, self, a[0].a));
}
Result call_16(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToTrustListJni(env, self, a[0].a));
}
Result call_17(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromTrustListJni(env, self, a[0].a));
}
Result call_18(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSwitchJni(env, self, a[0].i, a[1].z));
}
Result call_19(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDAdvertisementJni(env, self, a[0].i, a[1].z));
}
Result call_20(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANHardwareSwitchJni(env, self, a[0].s, a[1].z));
}
Result call_21(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni(env, self, a[0].i, a[1].s, a[2].s, a[3].s));
}
Result call_22(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANStandardJni(env, self, a[0].s, a[1].s));
}
Result call_23(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioChannelJni(env, self, a[0].s, a[1].i));
}
Result call_24(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioPowerJni(env, self, a[0].s, a[1].i));
}
Result call_25(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioFrequencyWidthJni(env, self, a[0].s, a[1].s));
}
Result call_26(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_startWLANWPSJni(env, self, a[0].i));
}
Result call_27(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_stopWLANWPSJni(env, self, a[0].i));
}
Result call_28(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_addWLANGuestSSIDJni(env, self, a[0].i));
}
Result call_29(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_deleteWLANGuestSSIDJni(env, self, a[0].i));
}
Result call_30(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestPortIsolationJni(env, self, a[0].i, a[1].z));
}
Result call_31(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestDurationJni(env, self, a[0].i, a[1].i));
}
Result call_32(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDInfoJni(env, self, a[0].i));
}
Result call_33(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDStatsJni(env, self, a[0].i));
}
Result call_34(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANWPSStatusJni(env, self, a[0].i));
}
Result call_35(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_bool(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHardwareSwitchJni(env, self, a[0].s));
}
Result call_36(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANRadioInfoJni(env, self, a[0].s));
}
Result call_37(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(env, self, a[0].s));
}
Result call_38(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHostInfoJni(env, self, a[0].a));
}
Result call_39(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getGuestSSIDInfoJni(env, self));
}
Result call_40(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(env, self, a[0].i));
}
Result call_41(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetInfoJni(env, self, a[0].i));
}
Result call_42(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetStatsJni(env, self, a[0].i));
}
Result call_43(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetEnableJni(env, self, a[0].i, a[1].z));
}
Result call_44(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetMaxBitRateJni(env, self, a[0].i, a[1].s));
}
Result call_45(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetDuplexModeJni(env, self, a[0].i, a[1].s));
}
Result call_46(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfPhyStatusJni(env, self));
}
Result call_47(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfUpTimeJni(env, self));
}
Result call_48(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfRegisterStatusJni(env, self));
}
Result call_49(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getUplinkIfStatsJni(env, self));
}
Result call_50(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(env, self));
}
Result call_51(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatsJni(env, self, a[0].i));
}
Result call_52(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(env, self, a[0].i));
}
Result call_53(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWanIfBandwidthJni(env, self, a[0].i));
}
Result call_54(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatusJni(env, self, a[0].i));
}
Result call_55(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getInternetWANIndexJni(env, self));
}
Result call_56(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_addWANIfJni(env, self, a[0].s, a[1].s, a[2].s));
}
Result call_57(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_setWANIfJni(env, self, a[0].i, a[1].s));
}
Result call_58(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_deleteWANIfJni(env, self, a[0].i));
}
Result call_59(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(env, self, a[0].i, a[1].s, a[2].s));
}
Result call_60(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni(env, self));
}
Result call_61(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni(env, self, a[0].i, a[1].s, a[2].s));
}
Result call_62(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni(env, self));
}
Result call_63(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(env, self, a[0].i, a[1].s, a[2].s));
}
Result call_64(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni(env, self));
}
Result call_65(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni(env, self, a[0].i, a[1].s, a[2].s));
}
Result call_66(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni(env, self));
}
Result call_67(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANHostIPJni(env, self, a[0].s, a[1].s));
}
Result call_68(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANDHCPInfoJni(env, self, a[0].s, a[1].s, a[2].s, a[3].i));
}
Result call_69(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANHostIPJni(env, self));
}
Result call_70(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANDHCPInfoJni(env, self));
}
Result call_71(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(env, self, a[0].i, a[1].i, a[2].i, a[3].s, a[4].s));
}
Result call_72(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_deletePortMappingJni(env, self, a[0].i, a[1].i));
}
Result call_73(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_setPortMappingSwitchJni(env, self, a[0].i, a[1].i, a[2].z));
}
Result call_74(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(env, self));
}
Result call_75(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceInfoJni(env, self));
}
Result call_76(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceMACJni(env, self));
}
Result call_77(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceUpTimeJni(env, self));
}
Result call_78(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getOSGiInfoJni(env, self));
}
Result call_79(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getJVMInfoJni(env, self));
}
Result call_80(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getAPIVersionJni(env, self));
}
Result call_81(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getCPUOccupancyRateJni(env, self));
}
Result call_82(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getRAMOccupancyRateJni(env, self));
}
Result call_83(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceManufacturerOUIJni(env, self));
}
Result call_84(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceSerialNumberJni(env, self));
}
Result call_85(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultWebPasswordJni(env, self));
}
Result call_86(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1NameJni(env, self));
}
Result call_87(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1PasswordJni(env, self));
}
Result call_88(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni(env, self));
}
Result call_89(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbRegisterJni(env, self, a[0].s, a[1].i));
}
Result call_90(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnregisterJni(env, self, a[0].s, a[1].i));
}
Result call_91(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbLockJni(env, self, a[0].i));
}
Result call_92(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnlockJni(env, self, a[0].i));
}
Result call_93(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbOpenJni(env, self, a[0].i));
}
Result call_94(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbCloseJni(env, self, a[0].i));
}
Result call_95(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbDataAvailableJni(env, self, a[0].i));
}
Result call_96(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbReadJni(env, self, a[0].i, a[1].y, a[2].i, a[3].i, a[4].i));
}
Result call_97(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbWriteJni(env, self, a[0].i, a[1].y, a[2].i, a[3].i));
}
Result call_98(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbSetSerialJni(env, self, a[0].i, a[1].i, a[2].i, a[3].i, a[4].i, a[5].b, a[6].z));
}
Result call_99(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(env, self));
}
Result call_100(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setFTPRightJni(env, self, a[0].i, a[1].z));
}
Result call_101(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPRightJni(env, self, a[0].i));
}
Result call_102(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setSambaRightJni(env, self, a[0].i));
}
Result call_103(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addFTPAccountJni(env, self, a[0].s, a[1].s));
}
Result call_104(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteFTPAccountJni(env, self, a[0].s));
}
Result call_105(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllFTPAccountJni(env, self));
}
Result call_106(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPUserPasswordJni(env, self, a[0].s));
}
Result call_107(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addSambaAccountJni(env, self, a[0].s, a[1].s));
}
Result call_108(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteSambaAccountJni(env, self, a[0].s));
}
Result call_109(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllSambaAccountJni(env, self));
}
Result call_110(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getFTPRightInfoJni(env, self));
}
Result call_111(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni(env, self));
}
Result call_112(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getSambaRightInfoJni(env, self));
}
Result call_113(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_setPasswordRegistrationJni(env, self, a[0].s, a[1].i, a[2].i, a[3].s));
}
Result call_114(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_getPasswordRegistrationInfoJni(env, self));
}
Result call_115(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_resetJni(env, self));
}
Result call_116(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_setLedSwitchJni(env, self, a[0].z));
}
Result call_117(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_addTrafficMonitoringDestAddressJni(env, self, a[0].a, a[1].s));
}
Result call_118(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_deleteTrafficMonitoringDestAddressJni(env, self, a[0].a, a[1].s));
}
Result call_119(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(env, self));
}
Result call_120(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_addMirrorRuleJni(env, self, a[0].s, a[1].s, a[2].s, a[3].s, a[4].s, a[5].s, a[6].i));
}
Result call_121(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteMirrorRuleJni(env, self, a[0].i));
}
Result call_122(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteAllMirrorRuleJni(env, self));
}
Result call_123(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_getMirroRuleInfoJni(env, self));
}
Result call_124(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_addForwardRuleJni(env, self, a[0].s, a[1].s, a[2].s, a[3].s, a[4].s, a[5].i));
}
Result call_125(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteForwardRuleJni(env, self, a[0].i));
}
Result call_126(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteAllForwardRuleJni(env, self));
}
Result call_127(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_getForwardRuleInfoJni(env, self));
}
Result call_128(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_addHTTPTrafficProcessRuleJni(env, self, a[0].s, a[1].i, a[2].s, a[3].s, a[4].a, a[5].a, a[6].a, a[7].s));
}
Result call_129(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteHTTPTrafficProcessRuleJni(env, self, a[0].i));
}
Result call_130(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteAllHTTPTrafficProcessRuleJni(env, self));
}
Result call_131(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(env, self));
}
Result call_132(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_addTrafficToFlowJni(env, self, a[0].s, a[1].s, a[2].i));
}
Result call_133(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteTrafficFromFlowJni(env, self, a[0].s, a[1].s, a[2].i));
}
Result call_134(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteAllTrafficFromFlowJni(env, self, a[0].i));
}
Result call_135(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getTrafficInfoByFlowJni(env, self, a[0].i));
}
Result call_136(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getStatsByFlowJni(env, self, a[0].i));
}
Result call_137(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedByFlowJni(env, self, a[0].i));
}
Result call_138(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setSpeedLimitByFlowJni(env, self, a[0].i, a[1].i, a[2].i));
}
Result call_139(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedLimitByFlowJni(env, self, a[0].i));
}
Result call_140(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setDSCPRemarkByFlowJni(env, self, a[0].i, a[1].i));
}
Result call_141(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getDSCPRemarkByFlowJni(env, self, a[0].i));
}
Result call_142(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getVLANBindInfoJni(env, self));
}
Result call_143(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingStaticConfigInfoJni(env, self));
}
Result call_144(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingCurrentJni(env, self));
}
Result call_145(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingStaticConfigInfoJni(env, self));
}
Result call_146(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingCurrentJni(env, self));
}
Result call_147(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPTVStatusJni(env, self));
}
Result call_148(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addLayer3ForwardingStaticJni(env, self, a[0].s, a[1].s, a[2].s, a[3].s));
}
Result call_149(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addIPv6Layer3ForwardingStaticJni(env, self, a[0].s, a[1].s, a[2].s));
}
Result call_150(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteLayer3ForwardingStaticJni(env, self, a[0].i));
}
Result call_151(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteIPv6Layer3ForwardingStaticJni(env, self, a[0].i));
}
Result call_152(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_setVLANBindJni(env, self, a[0].s, a[1].s));
}
Result call_153(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_clearVLANBindJni(env, self, a[0].s));
}
Result call_154(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni(env, self, a[0].s, a[1].s, a[2].s));
}
Result call_155(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOffJni(env, self, a[0].s));
}
Result call_156(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getVpnStatCmdJni(env, self));
}
Result call_157(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni(env, self));
}
Result call_158(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(env, self, a[0].a));
}
Result call_159(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni(env, self, a[0].a));
}
Result call_160(JNIEnv *env, jobject self, const Arg *a) {
  (void)a;
  return Result::of_text(Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_getPOTSInfoJni(env, self));
}
Result call_161(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_subscribeVoIPEventJni(env, self, a[0].s, a[1].a));
}
Result call_162(JNIEnv *env, jobject self, const Arg *a) {
  return Result::of_int(Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_unSubscribeVoIPEventJni(env, self, a[0].s, a[1].a));
}

}  // namespace

const Native kNatives[] = {
    {"lanservices", "LANHostsInfoQueryServiceImp", "getGatewayNameJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getGatewayNameJni", "", Returns::kText, call_0},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getLANHostInfoByMACJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni", "A", Returns::kText, call_1},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getLANHostInfoByInterfaceJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByInterfaceJni", "S", Returns::kText, call_2},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getMacFilterModeJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getMacFilterModeJni", "", Returns::kInt, call_3},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getLANHostInfoByClassJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni", "S", Returns::kText, call_4},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getLANHostStatsJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostStatsJni", "A", Returns::kText, call_5},
    {"lanservices", "LANHostsInfoQueryServiceImp", "getLANHostSpeedLimitInfoJni", "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostSpeedLimitInfoJni", "A", Returns::kText, call_6},
    {"lanservices", "LanNetworkNameConfigServiceImp", "setGatewayNameJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setGatewayNameJni", "S", Returns::kInt, call_7},
    {"lanservices", "LanNetworkNameConfigServiceImp", "setLANHostNameJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setLANHostNameJni", "SS", Returns::kInt, call_8},
    {"lanservices", "LanHostSpeedLimitServiceImp", "setLANHostSpeedLimitJni", "Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_setLANHostSpeedLimitJni", "SII", Returns::kInt, call_9},
    {"lanservices", "LanHostSpeedQueryServiceImp", "getLANHostSpeedJni", "Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_getLANHostSpeedJni", "S", Returns::kText, call_10},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "setMacFilterModeJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_setMacFilterModeJni", "I", Returns::kInt, call_11},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "addLANHostToBlackListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToBlackListJni", "A", Returns::kInt, call_12},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "deleteLANHostFromBlackListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromBlackListJni", "A", Returns::kInt, call_13},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "addLANHostToStorageBlackListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToStorageBlackListJni", "A", Returns::kInt, call_14},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "deleteLANHostFromStorageBlackListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromStorageBlackListJni", "A", Returns::kInt, call_15},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "addLANHostToTrustListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToTrustListJni", "A", Returns::kInt, call_16},
    {"lanservices", "LanNetworkAccessConfigServiceImp", "deleteLANHostFromTrustListJni", "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromTrustListJni", "A", Returns::kInt, call_17},
    {"lanservices", "WlanConfigServiceImp", "setWLANSSIDSwitchJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSwitchJni", "IZ", Returns::kInt, call_18},
    {"lanservices", "WlanConfigServiceImp", "setWLANSSIDAdvertisementJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDAdvertisementJni", "IZ", Returns::kInt, call_19},
    {"lanservices", "WlanConfigServiceImp", "setWLANHardwareSwitchJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANHardwareSwitchJni", "SZ", Returns::kInt, call_20},
    {"lanservices", "WlanConfigServiceImp", "setWLANSSIDSecurityJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni", "ISSS", Returns::kInt, call_21},
    {"lanservices", "WlanConfigServiceImp", "setWLANStandardJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANStandardJni", "SS", Returns::kInt, call_22},
    {"lanservices", "WlanConfigServiceImp", "setWLANRadioChannelJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioChannelJni", "SI", Returns::kInt, call_23},
    {"lanservices", "WlanConfigServiceImp", "setWLANRadioPowerJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioPowerJni", "SI", Returns::kInt, call_24},
    {"lanservices", "WlanConfigServiceImp", "setWLANRadioFrequencyWidthJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioFrequencyWidthJni", "SS", Returns::kInt, call_25},
    {"lanservices", "WlanConfigServiceImp", "startWLANWPSJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_startWLANWPSJni", "I", Returns::kInt, call_26},
    {"lanservices", "WlanConfigServiceImp", "stopWLANWPSJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_stopWLANWPSJni", "I", Returns::kInt, call_27},
    {"lanservices", "WlanConfigServiceImp", "addWLANGuestSSIDJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_addWLANGuestSSIDJni", "I", Returns::kInt, call_28},
    {"lanservices", "WlanConfigServiceImp", "deleteWLANGuestSSIDJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_deleteWLANGuestSSIDJni", "I", Returns::kInt, call_29},
    {"lanservices", "WlanConfigServiceImp", "setWLANGuestPortIsolationJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestPortIsolationJni", "IZ", Returns::kInt, call_30},
    {"lanservices", "WlanConfigServiceImp", "setWLANGuestDurationJni", "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestDurationJni", "II", Returns::kInt, call_31},
    {"lanservices", "WlanQueryServiceImp", "getWLANSSIDInfoJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDInfoJni", "I", Returns::kText, call_32},
    {"lanservices", "WlanQueryServiceImp", "getWLANSSIDStatsJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDStatsJni", "I", Returns::kText, call_33},
    {"lanservices", "WlanQueryServiceImp", "getWLANWPSStatusJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANWPSStatusJni", "I", Returns::kInt, call_34},
    {"lanservices", "WlanQueryServiceImp", "getWLANHardwareSwitchJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHardwareSwitchJni", "S", Returns::kBool, call_35},
    {"lanservices", "WlanQueryServiceImp", "getWLANRadioInfoJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANRadioInfoJni", "S", Returns::kText, call_36},
    {"lanservices", "WlanQueryServiceImp", "getWLANNeighborJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni", "S", Returns::kText, call_37},
    {"lanservices", "WlanQueryServiceImp", "getWLANHostInfoJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHostInfoJni", "A", Returns::kText, call_38},
    {"lanservices", "WlanQueryServiceImp", "getGuestSSIDInfoJni", "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getGuestSSIDInfoJni", "", Returns::kText, call_39},
    {"lanservices", "WlanSecretQueryServiceImp", "getWLANSSIDPasswordJni", "Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni", "I", Returns::kText, call_40},
    {"lanservices", "EthQueryServiceImp", "getLANEthernetInfoJni", "Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetInfoJni", "I", Returns::kText, call_41},
    {"lanservices", "EthQueryServiceImp", "getLANEthernetStatsJni", "Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_getLANEthernetStatsJni", "I", Returns::kText, call_42},
    {"lanservices", "EthConfigServiceImp", "setLANEthernetEnableJni", "Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetEnableJni", "IZ", Returns::kInt, call_43},
    {"lanservices", "EthConfigServiceImp", "setLANEthernetMaxBitRateJni", "Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetMaxBitRateJni", "IS", Returns::kInt, call_44},
    {"lanservices", "EthConfigServiceImp", "setLANEthernetDuplexModeJni", "Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetDuplexModeJni", "IS", Returns::kInt, call_45},
    {"accessservices", "AccessInfoQueryServiceImp", "getPONIfPhyStatusJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfPhyStatusJni", "", Returns::kText, call_46},
    {"accessservices", "AccessInfoQueryServiceImp", "getPONIfUpTimeJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfUpTimeJni", "", Returns::kInt, call_47},
    {"accessservices", "AccessInfoQueryServiceImp", "getPONIfRegisterStatusJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfRegisterStatusJni", "", Returns::kText, call_48},
    {"accessservices", "AccessInfoQueryServiceImp", "getUplinkIfStatsJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getUplinkIfStatsJni", "", Returns::kText, call_49},
    {"accessservices", "AccessInfoQueryServiceImp", "getWANIfListJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni", "", Returns::kText, call_50},
    {"accessservices", "AccessInfoQueryServiceImp", "getWANIfStatsJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatsJni", "I", Returns::kText, call_51},
    {"accessservices", "AccessInfoQueryServiceImp", "getWANIfInfoJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni", "I", Returns::kText, call_52},
    {"accessservices", "AccessInfoQueryServiceImp", "getWanIfBandwidthJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWanIfBandwidthJni", "I", Returns::kText, call_53},
    {"accessservices", "AccessInfoQueryServiceImp", "getWANIfStatusJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatusJni", "I", Returns::kText, call_54},
    {"accessservices", "AccessInfoQueryServiceImp", "getInternetWANIndexJni", "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getInternetWANIndexJni", "", Returns::kInt, call_55},
    {"accessservices", "WanConfigServiceImp", "addWANIfJni", "Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_addWANIfJni", "SSS", Returns::kInt, call_56},
    {"accessservices", "WanConfigServiceImp", "setWANIfJni", "Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_setWANIfJni", "IS", Returns::kInt, call_57},
    {"accessservices", "WanConfigServiceImp", "deleteWANIfJni", "Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_deleteWANIfJni", "I", Returns::kInt, call_58},
    {"accessservices", "IPPingDiagnosticsServiceImp", "startIPPingDiagnosticsJni", "Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni", "ISS", Returns::kInt, call_59},
    {"accessservices", "IPPingDiagnosticsServiceImp", "getIPPingDiagnosticsResultJni", "Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni", "", Returns::kText, call_60},
    {"accessservices", "TraceRouteDiagnosticsServiceImp", "startTraceRouteDiagnosticsJni", "Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni", "ISS", Returns::kInt, call_61},
    {"accessservices", "TraceRouteDiagnosticsServiceImp", "getTraceRouteDiagnosticsResultJni", "Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni", "", Returns::kText, call_62},
    {"accessservices", "HttpUploadDiagnosticsServiceImp", "startHttpUploadDiagnosticsJni", "Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni", "ISS", Returns::kInt, call_63},
    {"accessservices", "HttpUploadDiagnosticsServiceImp", "getHttpUploadDiagnosticsResultJni", "Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni", "", Returns::kText, call_64},
    {"accessservices", "HttpDownloadDiagnosticsServiceImp", "startHttpDownloadDiagnosticsJni", "Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni", "ISS", Returns::kInt, call_65},
    {"accessservices", "HttpDownloadDiagnosticsServiceImp", "getHttpDownloadDiagnosticsResultJni", "Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni", "", Returns::kText, call_66},
    {"addressservices", "LANIPConfigServiceImp", "setLANHostIPJni", "Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANHostIPJni", "SS", Returns::kInt, call_67},
    {"addressservices", "LANIPConfigServiceImp", "setLANDHCPInfoJni", "Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANDHCPInfoJni", "SSSI", Returns::kInt, call_68},
    {"addressservices", "LANIPInfoQueryServiceImp", "getLANHostIPJni", "Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANHostIPJni", "", Returns::kText, call_69},
    {"addressservices", "LANIPInfoQueryServiceImp", "getLANDHCPInfoJni", "Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANDHCPInfoJni", "", Returns::kText, call_70},
    {"addressservices", "PortMappingConfigServiceImp", "addPortMappingJni", "Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni", "IIISS", Returns::kInt, call_71},
    {"addressservices", "PortMappingConfigServiceImp", "deletePortMappingJni", "Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_deletePortMappingJni", "II", Returns::kInt, call_72},
    {"addressservices", "PortMappingConfigServiceImp", "setPortMappingSwitchJni", "Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_setPortMappingSwitchJni", "IIZ", Returns::kInt, call_73},
    {"addressservices", "PortMappingQueryServiceImp", "getPortMappingInfoJni", "Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni", "", Returns::kText, call_74},
    {"commservices", "DeviceInfoQueryServiceImp", "getDeviceInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceInfoJni", "", Returns::kText, call_75},
    {"commservices", "DeviceInfoQueryServiceImp", "getDeviceMACJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceMACJni", "", Returns::kText, call_76},
    {"commservices", "DeviceInfoQueryServiceImp", "getDeviceUpTimeJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceUpTimeJni", "", Returns::kInt, call_77},
    {"commservices", "DeviceInfoQueryServiceImp", "getOSGiInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getOSGiInfoJni", "", Returns::kText, call_78},
    {"commservices", "DeviceInfoQueryServiceImp", "getJVMInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getJVMInfoJni", "", Returns::kText, call_79},
    {"commservices", "DeviceInfoQueryServiceImp", "getAPIVersionJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getAPIVersionJni", "", Returns::kText, call_80},
    {"commservices", "DeviceInfoQueryServiceImp", "getCPUOccupancyRateJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getCPUOccupancyRateJni", "", Returns::kInt, call_81},
    {"commservices", "DeviceInfoQueryServiceImp", "getRAMOccupancyRateJni", "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getRAMOccupancyRateJni", "", Returns::kInt, call_82},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDeviceManufacturerOUIJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceManufacturerOUIJni", "", Returns::kText, call_83},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDeviceSerialNumberJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceSerialNumberJni", "", Returns::kText, call_84},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDeviceDefaultWebPasswordJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultWebPasswordJni", "", Returns::kText, call_85},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDeviceDefaultSSID1NameJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1NameJni", "", Returns::kText, call_86},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDeviceDefaultSSID1PasswordJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1PasswordJni", "", Returns::kText, call_87},
    {"commservices", "DeviceSecretInfoQueryServiceImp", "getDevicePasswordJni", "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni", "", Returns::kText, call_88},
    {"commservices", "UsbServiceImp", "usbRegisterJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbRegisterJni", "SI", Returns::kInt, call_89},
    {"commservices", "UsbServiceImp", "usbUnregisterJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnregisterJni", "SI", Returns::kInt, call_90},
    {"commservices", "UsbServiceImp", "usbLockJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbLockJni", "I", Returns::kInt, call_91},
    {"commservices", "UsbServiceImp", "usbUnlockJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnlockJni", "I", Returns::kInt, call_92},
    {"commservices", "UsbServiceImp", "usbOpenJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbOpenJni", "I", Returns::kInt, call_93},
    {"commservices", "UsbServiceImp", "usbCloseJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbCloseJni", "I", Returns::kInt, call_94},
    {"commservices", "UsbServiceImp", "usbDataAvailableJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbDataAvailableJni", "I", Returns::kInt, call_95},
    {"commservices", "UsbServiceImp", "usbReadJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbReadJni", "IYIII", Returns::kInt, call_96},
    {"commservices", "UsbServiceImp", "usbWriteJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbWriteJni", "IYII", Returns::kInt, call_97},
    {"commservices", "UsbServiceImp", "usbSetSerialJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbSetSerialJni", "IIIIIBZ", Returns::kInt, call_98},
    {"commservices", "UsbServiceImp", "getStorageInfoJni", "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni", "", Returns::kText, call_99},
    {"commservices", "DeviceAccessRightConfigServiceImp", "setFTPRightJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setFTPRightJni", "IZ", Returns::kInt, call_100},
    {"commservices", "DeviceAccessRightConfigServiceImp", "setHTTPRightJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPRightJni", "I", Returns::kInt, call_101},
    {"commservices", "DeviceAccessRightConfigServiceImp", "setSambaRightJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setSambaRightJni", "I", Returns::kInt, call_102},
    {"commservices", "DeviceAccessRightConfigServiceImp", "addFTPAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addFTPAccountJni", "SS", Returns::kInt, call_103},
    {"commservices", "DeviceAccessRightConfigServiceImp", "deleteFTPAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteFTPAccountJni", "S", Returns::kInt, call_104},
    {"commservices", "DeviceAccessRightConfigServiceImp", "deleteAllFTPAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllFTPAccountJni", "", Returns::kInt, call_105},
    {"commservices", "DeviceAccessRightConfigServiceImp", "setHTTPUserPasswordJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPUserPasswordJni", "S", Returns::kInt, call_106},
    {"commservices", "DeviceAccessRightConfigServiceImp", "addSambaAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addSambaAccountJni", "SS", Returns::kInt, call_107},
    {"commservices", "DeviceAccessRightConfigServiceImp", "deleteSambaAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteSambaAccountJni", "S", Returns::kInt, call_108},
    {"commservices", "DeviceAccessRightConfigServiceImp", "deleteAllSambaAccountJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllSambaAccountJni", "", Returns::kInt, call_109},
    {"commservices", "DeviceAccessRightQueryServiceImp", "getFTPRightInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getFTPRightInfoJni", "", Returns::kText, call_110},
    {"commservices", "DeviceAccessRightQueryServiceImp", "getHTTPRightInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni", "", Returns::kText, call_111},
    {"commservices", "DeviceAccessRightQueryServiceImp", "getSambaRightInfoJni", "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getSambaRightInfoJni", "", Returns::kText, call_112},
    {"commservices", "RegistrationServiceImp", "setPasswordRegistrationJni", "Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_setPasswordRegistrationJni", "SIIS", Returns::kInt, call_113},
    {"commservices", "RegistrationServiceImp", "getPasswordRegistrationInfoJni", "Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_getPasswordRegistrationInfoJni", "", Returns::kText, call_114},
    {"commservices", "DeviceRsetServiceImp", "resetJni", "Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_resetJni", "", Returns::kInt, call_115},
    {"commservices", "DeviceConfigServiceImp", "setLedSwitchJni", "Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_setLedSwitchJni", "Z", Returns::kInt, call_116},
    {"transferservices", "TrafficMonitoringConfigServiceImp", "addTrafficMonitoringDestAddressJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_addTrafficMonitoringDestAddressJni", "AS", Returns::kInt, call_117},
    {"transferservices", "TrafficMonitoringConfigServiceImp", "deleteTrafficMonitoringDestAddressJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_deleteTrafficMonitoringDestAddressJni", "AS", Returns::kInt, call_118},
    {"transferservices", "TrafficMonitoringConfigServiceImp", "getTrafficMonitoringDestAddressInfoJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni", "", Returns::kText, call_119},
    {"transferservices", "TrafficMirrorServiceImp", "addMirrorRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_addMirrorRuleJni", "SSSSSSI", Returns::kInt, call_120},
    {"transferservices", "TrafficMirrorServiceImp", "deleteMirrorRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteMirrorRuleJni", "I", Returns::kInt, call_121},
    {"transferservices", "TrafficMirrorServiceImp", "deleteAllMirrorRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteAllMirrorRuleJni", "", Returns::kInt, call_122},
    {"transferservices", "TrafficMirrorServiceImp", "getMirroRuleInfoJni", "Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_getMirroRuleInfoJni", "", Returns::kText, call_123},
    {"transferservices", "TrafficForwardServiceImp", "addForwardRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_addForwardRuleJni", "SSSSSI", Returns::kInt, call_124},
    {"transferservices", "TrafficForwardServiceImp", "deleteForwardRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteForwardRuleJni", "I", Returns::kInt, call_125},
    {"transferservices", "TrafficForwardServiceImp", "deleteAllForwardRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteAllForwardRuleJni", "", Returns::kInt, call_126},
    {"transferservices", "TrafficForwardServiceImp", "getForwardRuleInfoJni", "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_getForwardRuleInfoJni", "", Returns::kText, call_127},
    {"transferservices", "TrafficDetailProcessServiceImp", "addHTTPTrafficProcessRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_addHTTPTrafficProcessRuleJni", "SISSAAAS", Returns::kInt, call_128},
    {"transferservices", "TrafficDetailProcessServiceImp", "deleteHTTPTrafficProcessRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteHTTPTrafficProcessRuleJni", "I", Returns::kInt, call_129},
    {"transferservices", "TrafficDetailProcessServiceImp", "deleteAllHTTPTrafficProcessRuleJni", "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteAllHTTPTrafficProcessRuleJni", "", Returns::kInt, call_130},
    {"transferservices", "TrafficDetailProcessServiceImp", "getHTTPTrafficProcessRuleInfoJni", "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni", "", Returns::kText, call_131},
    {"transferservices", "TrafficQoSServiceImp", "addTrafficToFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_addTrafficToFlowJni", "SSI", Returns::kInt, call_132},
    {"transferservices", "TrafficQoSServiceImp", "deleteTrafficFromFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteTrafficFromFlowJni", "SSI", Returns::kInt, call_133},
    {"transferservices", "TrafficQoSServiceImp", "deleteAllTrafficFromFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteAllTrafficFromFlowJni", "I", Returns::kInt, call_134},
    {"transferservices", "TrafficQoSServiceImp", "getTrafficInfoByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getTrafficInfoByFlowJni", "I", Returns::kText, call_135},
    {"transferservices", "TrafficQoSServiceImp", "getStatsByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getStatsByFlowJni", "I", Returns::kText, call_136},
    {"transferservices", "TrafficQoSServiceImp", "getSpeedByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedByFlowJni", "I", Returns::kText, call_137},
    {"transferservices", "TrafficQoSServiceImp", "setSpeedLimitByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setSpeedLimitByFlowJni", "III", Returns::kInt, call_138},
    {"transferservices", "TrafficQoSServiceImp", "getSpeedLimitByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedLimitByFlowJni", "I", Returns::kText, call_139},
    {"transferservices", "TrafficQoSServiceImp", "setDSCPRemarkByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setDSCPRemarkByFlowJni", "II", Returns::kInt, call_140},
    {"transferservices", "TrafficQoSServiceImp", "getDSCPRemarkByFlowJni", "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getDSCPRemarkByFlowJni", "I", Returns::kInt, call_141},
    {"transferservices", "TransferQueryServiceImp", "getVLANBindInfoJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getVLANBindInfoJni", "", Returns::kText, call_142},
    {"transferservices", "TransferQueryServiceImp", "getLayer3ForwardingStaticConfigInfoJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingStaticConfigInfoJni", "", Returns::kText, call_143},
    {"transferservices", "TransferQueryServiceImp", "getLayer3ForwardingCurrentJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingCurrentJni", "", Returns::kText, call_144},
    {"transferservices", "TransferQueryServiceImp", "getIPv6Layer3ForwardingStaticConfigInfoJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingStaticConfigInfoJni", "", Returns::kText, call_145},
    {"transferservices", "TransferQueryServiceImp", "getIPv6Layer3ForwardingCurrentJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingCurrentJni", "", Returns::kText, call_146},
    {"transferservices", "TransferQueryServiceImp", "getIPTVStatusJni", "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPTVStatusJni", "", Returns::kText, call_147},
    {"transferservices", "StaticLayer3ForwardingConfigServiceImp", "addLayer3ForwardingStaticJni", "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addLayer3ForwardingStaticJni", "SSSS", Returns::kInt, call_148},
    {"transferservices", "StaticLayer3ForwardingConfigServiceImp", "addIPv6Layer3ForwardingStaticJni", "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addIPv6Layer3ForwardingStaticJni", "SSS", Returns::kInt, call_149},
    {"transferservices", "StaticLayer3ForwardingConfigServiceImp", "deleteLayer3ForwardingStaticJni", "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteLayer3ForwardingStaticJni", "I", Returns::kInt, call_150},
    {"transferservices", "StaticLayer3ForwardingConfigServiceImp", "deleteIPv6Layer3ForwardingStaticJni", "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteIPv6Layer3ForwardingStaticJni", "I", Returns::kInt, call_151},
    {"transferservices", "VLANBindConfigServiceImp", "setVLANBindJni", "Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_setVLANBindJni", "SS", Returns::kInt, call_152},
    {"transferservices", "VLANBindConfigServiceImp", "clearVLANBindJni", "Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_clearVLANBindJni", "S", Returns::kInt, call_153},
    {"transferservices", "L2TPVPNServiceImp", "vpnOnJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni", "SSS", Returns::kText, call_154},
    {"transferservices", "L2TPVPNServiceImp", "vpnOffJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOffJni", "S", Returns::kText, call_155},
    {"transferservices", "L2TPVPNServiceImp", "getVpnStatCmdJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getVpnStatCmdJni", "", Returns::kText, call_156},
    {"transferservices", "L2TPVPNServiceImp", "getConnectedIpListJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni", "", Returns::kText, call_157},
    {"transferservices", "L2TPVPNServiceImp", "addVpnDestIPJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni", "A", Returns::kInt, call_158},
    {"transferservices", "L2TPVPNServiceImp", "deleteVpnDestIPJni", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni", "A", Returns::kInt, call_159},
    {"voipservices", "VoIPInfoQueryServiceImp", "getPOTSInfoJni", "Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_getPOTSInfoJni", "", Returns::kText, call_160},
    {"voipservices", "VoIPInfoSubscribeServiceImp", "subscribeVoIPEventJni", "Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_subscribeVoIPEventJni", "SA", Returns::kInt, call_161},
    {"voipservices", "VoIPInfoSubscribeServiceImp", "unSubscribeVoIPEventJni", "Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_unSubscribeVoIPEventJni", "SA", Returns::kInt, call_162},
};
const size_t kNativeCount = sizeof kNatives / sizeof kNatives[0];

}  // namespace catalogue
