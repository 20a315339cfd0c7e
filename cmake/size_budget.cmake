# What the gateway's flash holds for the library: the stripped libbundle_sc.so of the shipped
# configuration (BUNDLE_FLASH, the MIPS build) may not exceed this many bytes. The <tier>size
# test of that build fails beyond it; the other builds report their size only.
set(BUNDLE_FLASH_BUDGET 131072)
