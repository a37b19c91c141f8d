package ui.frmwork.cmd;

/** A call of the library failed. The message is that of the library. */
public class CommandFailedException extends Exception {
    private static final long serialVersionUID = 1;

    public CommandFailedException(String message) {
        super(message);
    }
}
