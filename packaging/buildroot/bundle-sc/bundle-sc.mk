################################################################################
#
# bundle-sc
#
################################################################################

BUNDLE_SC_VERSION = 1.0.0
# The source tree this external tree belongs to (BUNDLE_SC_OVERRIDE_SRCDIR in local.mk names
# another).
BUNDLE_SC_SITE = $(BR2_EXTERNAL_BUNDLE_SC_PATH)/../..
BUNDLE_SC_SITE_METHOD = local
BUNDLE_SC_LICENSE = Proprietary

BUNDLE_SC_DEPENDENCIES = brelo tcapi mjson
BUNDLE_SC_SUPPORTS_IN_SOURCE_BUILD = NO

# The flash configuration, the vendor's platform libraries from staging, no tests, no Java.
BUNDLE_SC_CONF_OPTS = \
	-DBUNDLE_FLASH=ON \
	-DBUNDLE_PLATFORM_LIBDIR=$(STAGING_DIR)/usr/lib \
	-DBUILD_TESTING=OFF \
	-DBUNDLE_TIERS=OFF \
	-DBUNDLE_JVM_TESTS=OFF \
	-DBUNDLE_INSTALL_JAVA=OFF \
	-DCMAKE_INSTALL_LIBDIR=lib

# Staging gets the whole install (for packages that link the library); the target gets the
# gateway's files, what `cmake --install` produces for the gateway
# (packaging/install-manifest-gateway.txt): the runtime component, and the capture component
# when its option is set.
BUNDLE_SC_INSTALL_STAGING = YES
BUNDLE_SC_INSTALL_TARGET = YES
BUNDLE_SC_TARGET_FILES = \
	usr/lib/libbundle_sc.so
# The capture component, with BR2_PACKAGE_BUNDLE_SC_CAPTURE.
BUNDLE_SC_CAPTURE_TARGET_FILES = \
	usr/bin/bundle_sc-capture
ifeq ($(BR2_PACKAGE_BUNDLE_SC_CAPTURE),y)
BUNDLE_SC_TARGET_FILES += $(BUNDLE_SC_CAPTURE_TARGET_FILES)
endif

define BUNDLE_SC_INSTALL_TARGET_CMDS
	$(foreach f,$(BUNDLE_SC_TARGET_FILES),\
		$(INSTALL) -D -m 0755 $(STAGING_DIR)/$(f) $(TARGET_DIR)/$(f)$(sep))
endef

$(eval $(cmake-package))
