/**
 * Reads the replies of the gateway's native service methods into Gson trees:
 * {@link bundlesc.reply.ReplyReader#read(String)} answers a {@link bundlesc.reply.Reply} with
 * the tree and the {@link bundlesc.reply.Repair repairs} of the replies' historic oddities.
 * Packaged as the OSGi bundle {@code bundlesc.reply}, which exports this package and imports
 * {@code com.google.gson}.
 */
package bundlesc.reply;
