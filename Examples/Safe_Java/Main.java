/** A safe whose code is 4711: it says what the chart leaves open. */
public class Main extends Safe {
    private int typed;

    @Override
    protected boolean matches() {
        return typed == 4711;
    }

    @Override
    protected void draw() {
        System.out.println("bolts drawn");
    }

    @Override
    protected void slide() {
        System.out.println("bolts slid");
    }

    @Override
    protected void ring() {
        System.out.println("alarm");
    }

    private void type(int code) {
        typed = code;
        boolean accepted = dispatch(Event.Code);
        System.out.println(code + ": " + currentState() + (accepted ? "" : ", refused"));
    }

    public static void main(String[] arguments) {
        Main safe = new Main();
        safe.type(4711); // before the start
        safe.start();
        safe.type(1234);
        safe.type(4711);
        safe.dispatch(Event.Shut);
        for (int code = 1; code <= 4; ++code) {
            safe.type(code);
        }
        safe.dispatch(Event.Reset);
        safe.type(4711);
    }
}
