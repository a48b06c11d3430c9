import java.awt.BorderLayout;
import java.awt.FlowLayout;
import java.awt.GridLayout;
import java.util.stream.IntStream;
import javax.swing.BorderFactory;
import javax.swing.ButtonGroup;
import javax.swing.JButton;
import javax.swing.JCheckBox;
import javax.swing.JComboBox;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JMenu;
import javax.swing.JMenuBar;
import javax.swing.JPanel;
import javax.swing.JRadioButton;
import javax.swing.JTextField;
import javax.swing.SwingUtilities;

/** The fields of the transaction form as a Swing program has them; they do nothing. */
public final class CounterForm {
    private static final String[] MONTHS = {"January", "February", "March", "April", "May", "June",
        "July", "August", "September", "October", "November", "December"};
    private static final String[] STATES = {"AL", "AK", "AZ", "CA", "CO", "FL", "GA", "IL", "IN",
        "KS", "KY", "MA", "MI", "MN", "NY", "OH", "TX", "UT", "VA", "WA"};

    private final JTextField holder = new JTextField(20);

    public static void main(String[] arguments) {
        SwingUtilities.invokeLater(() -> new CounterForm().show());
    }

    private void show() {
        JFrame frame = new JFrame("Card payment");
        frame.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
        frame.setJMenuBar(menus());
        frame.add(kinds(), BorderLayout.NORTH);
        JPanel columns = new JPanel(new GridLayout(1, 2, 8, 8));
        columns.add(left());
        columns.add(right());
        frame.add(columns, BorderLayout.CENTER);
        frame.add(buttons(), BorderLayout.SOUTH);
        frame.pack();
        frame.setVisible(true);
        holder.requestFocusInWindow();
    }

    private static JMenuBar menus() {
        JMenuBar bar = new JMenuBar();
        for (String title : new String[] {"Program", "Receipt", "Help"}) {
            bar.add(new JMenu(title));
        }
        return bar;
    }

    private static JPanel kinds() {
        JPanel panel = new JPanel(new FlowLayout(FlowLayout.LEFT));
        ButtonGroup group = new ButtonGroup();
        for (String kind : new String[] {"Charge", "Refund", "Void"}) {
            JRadioButton button = new JRadioButton(kind, group.getButtonCount() == 0);
            group.add(button);
            panel.add(button);
        }
        return panel;
    }

    private JPanel left() {
        JPanel panel = frame("Card", 10);
        String[] years = IntStream.range(2026, 2046).mapToObj(String::valueOf).toArray(String[]::new);
        add(panel, "Card holder", holder);
        add(panel, "Card number", new JTextField());
        add(panel, "Card code", new JTextField());
        add(panel, "Good thru", new JComboBox<>(MONTHS));
        add(panel, "Year", new JComboBox<>(years));
        add(panel, "Amount", new JTextField());
        add(panel, "", new JCheckBox("Tax exempt"));
        add(panel, "Tax", new JTextField());
        add(panel, "Approval code", new JTextField());
        add(panel, "Transaction ID", new JTextField());
        return panel;
    }

    private static JPanel right() {
        JPanel panel = frame("Bill to", 10);
        add(panel, "Street", new JTextField());
        add(panel, "City", new JTextField());
        add(panel, "State", new JComboBox<>(STATES));
        add(panel, "Zip", new JTextField());
        add(panel, "E-mail", new JTextField());
        add(panel, "Description", new JTextField());
        add(panel, "Invoice number", new JTextField());
        add(panel, "PO number", new JTextField());
        add(panel, "", new JCheckBox("Authorized by telephone"));
        add(panel, "", new JCheckBox("Number is good"));
        return panel;
    }

    private static JPanel buttons() {
        JPanel panel = new JPanel(new FlowLayout(FlowLayout.RIGHT));
        for (String caption : new String[] {"Submit", "Cancel", "Configure"}) {
            panel.add(new JButton(caption));
        }
        return panel;
    }

    private static JPanel frame(String title, int rows) {
        JPanel panel = new JPanel(new GridLayout(rows, 2, 4, 4));
        panel.setBorder(BorderFactory.createTitledBorder(title));
        return panel;
    }

    private static void add(JPanel panel, String caption, JComponent field) {
        panel.add(new JLabel(caption));
        panel.add(field);
    }
}
