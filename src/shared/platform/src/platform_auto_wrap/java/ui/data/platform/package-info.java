/**
 * Platforms of FPGA accelerators: the classes of the native library {@code zr_platform}.
 *
 * <p>A program calls {@code System.loadLibrary("zr_platform")} first. {@link ui.data.platform.TEQPlatformEngineHelper}
 * loads a platform and answers questions about it, {@link ui.data.platform.TEQPlatformMgr} is a registry of platforms, and
 * {@link ui.data.platform.NativeObjectService} gives a platform's document. What an object hands out belongs to that
 * object, and must not be used after it. An object made with {@code new} is deleted by {@code delete()}, or when its
 * proxy is finalized.
 */
package ui.data.platform;
