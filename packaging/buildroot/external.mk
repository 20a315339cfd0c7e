include $(sort $(wildcard $(BR2_EXTERNAL_BUNDLE_SC_PATH)/*/*.mk))
