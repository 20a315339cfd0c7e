# The flash space of the library: the stripped libbundle_sc.so of the shipped configuration
# (BUNDLE_FLASH, the MIPS build). The mips.size test fails when the library is larger than
# BUNDLE_FLASH_BUDGET; the other builds report their size only.
#
# BUNDLE_FLASH_LIMIT is what the gateway's flash layout allows (128 KiB), and the enforced
# budget is that limit itself: the library with all its natives fits (its size is in
# library-size.txt and on the generated performance page), and growth past the flash is a
# failed test, not a surprise on the gateway.
set(BUNDLE_FLASH_LIMIT 131072)
set(BUNDLE_FLASH_BUDGET ${BUNDLE_FLASH_LIMIT})
