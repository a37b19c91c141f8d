package ui.frmwork;

/** The library could not allocate memory. */
public class COutOfMemoryException extends RuntimeException {
    private static final long serialVersionUID = 1;

    public COutOfMemoryException(String message) {
        super(message);
    }
}
