# Debian 12 packages, by purpose (sourced by the setup scripts).
BUILD_PACKAGES=(cmake make g++ openjdk-17-jdk-headless rapidjson-dev libfelix-framework-java libgoogle-gson-java felix-main libfelix-gogo-runtime-java libfelix-gogo-shell-java libfelix-gogo-command-java libfelix-bundlerepository-java)
TEST_PACKAGES=(googletest junit5 g++-mips-linux-gnu qemu-user valgrind clang libclang-rt-14-dev libjacoco-java libeclipse-osgi-java libknopflerfish-osgi-framework-java)
