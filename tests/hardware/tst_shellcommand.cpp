#include "hardware/shell/shellcommand.h"

#include "support/testmain.h"

#include <QtTest>

using hardware::ShellCommand;

class tst_ShellCommand : public QObject
{
    Q_OBJECT

private slots:
    void mapped_data();
    void mapped();
    void leavesUnit_data();
    void leavesUnit();
    void tooDeepToLookInto();
    void relativePaths_data();
    void relativePaths();
};

void tst_ShellCommand::mapped_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("mapped");

    const auto row = [](const char *name, const char *command, const char *mapped) {
        QTest::newRow(name) << QByteArray(command) << QByteArray(mapped);
    };
    // What the screen's pages run.
    row("remove a log", "rm /media/usb0/userdata/btsnoop.log",
        R"(rm "$UNIT"/media/usb0/userdata/btsnoop.log)");
    row("make a folder", "mkdir -p /media/usb0/userdata",
        R"(mkdir -p "$UNIT"/media/usb0/userdata)");
    row("copy a log", "cp /media/flash/nvm/btsnoop.log /media/usb0/nvm",
        R"(cp "$UNIT"/media/flash/nvm/btsnoop.log "$UNIT"/media/usb0/nvm)");
    row("copy with a pattern",
        "cp -rf /media/flash/userdata/log_service//*  /media/usb0/QM_SYSTEMLOG/",
        R"(cp -rf "$UNIT"/media/flash/userdata/log_service//*  "$UNIT"/media/usb0/QM_SYSTEMLOG/)");
    row("write a switch", "echo 1 > /sys/module/usbcore/parameters/usb_logo_test_start",
        R"(echo 1 > "$UNIT"/sys/module/usbcore/parameters/usb_logo_test_start)");
    row("write a speed", "echo 0 > /sys/devices/platform/ehci-platform.2/usb_speed_switch",
        R"(echo 0 > "$UNIT"/sys/devices/platform/ehci-platform.2/usb_speed_switch)");
    row("quiet the kernel", "echo 0 > /proc/sys/kernel/printk",
        R"(echo 0 > "$UNIT"/proc/sys/kernel/printk)");
    row("no path", "sync", "sync");
    row("no path with an argument", "logset ALOG_OUTPUT n", "logset ALOG_OUTPUT n");

    // Where a path may begin.
    row("at the start", "/media/flash/tool", R"("$UNIT"/media/flash/tool)");
    row("after a tabulator", "cat\t/dev/mem", "cat\t\"$UNIT\"/dev/mem");
    row("after a line end", "sync\n/media/flash/tool", "sync\n\"$UNIT\"/media/flash/tool");
    row("after =", "dd if=/dev/mem of=/media/usb0/m",
        R"(dd if="$UNIT"/dev/mem of="$UNIT"/media/usb0/m)");
    row("after >", "echo 1 >/dev/ttyS3", R"(echo 1 >"$UNIT"/dev/ttyS3)");
    row("after >>", "echo 1 >>/media/usb0/a", R"(echo 1 >>"$UNIT"/media/usb0/a)");
    row("after <", "cat </media/usb0/a", R"(cat <"$UNIT"/media/usb0/a)");
    row("after |", "cat a|/media/flash/b", R"(cat a|"$UNIT"/media/flash/b)");
    row("after ;", "a;/media/flash/b", R"(a;"$UNIT"/media/flash/b)");
    row("after &", "a&&/media/flash/b", R"(a&&"$UNIT"/media/flash/b)");
    row("after (", "(/media/flash/b)", R"(("$UNIT"/media/flash/b))");
    row("after $(", "echo $(cat /media/usb0/a)", R"(echo $(cat "$UNIT"/media/usb0/a))");
    row("after a backquote", "echo `cat /media/usb0/a`", R"(echo `cat "$UNIT"/media/usb0/a`)");
    row("after an option", "tar -C/media/usb0 -xf a", R"(tar -C"$UNIT"/media/usb0 -xf a)");
    row("in a list", "x=/media/a:/media/b", R"(x="$UNIT"/media/a:"$UNIT"/media/b)");
    row("in a comma list", "x /media/a,/media/b", R"(x "$UNIT"/media/a,"$UNIT"/media/b)");

    // What is no path of the unit.
    row("inside another path", "cp /tmp/media/a b/media/c", "cp /tmp/media/a b/media/c");
    row("another name", "ls /mediatheque /medi", "ls /mediatheque /medi");
    row("nothing device", "a > /dev/null 2>&1", "a > /dev/null 2>&1");
    row("led already", R"(ls "$UNIT"/media/usb0)", R"(ls "$UNIT"/media/usb0)");
    row("in a comment", "sync # not /media/usb0", "sync # not /media/usb0");

    // Quotes: the folder may hold blanks, whatever the quotes around the path.
    row("double quotes", R"(cp "/media/usb0/a b" c)", R"(cp "$UNIT/media/usb0/a b" c)");
    row("single quotes", "cp '/media/usb0/a b' c", R"(cp ''"$UNIT"'/media/usb0/a b' c)");
    row("after = in single quotes", "x 'a=/media/b c'", R"(x 'a='"$UNIT"'/media/b c')");
    row("after = in double quotes", R"(x "a=/media/b c")", R"(x "a=$UNIT/media/b c")");
    row("quotes in the middle", R"(cat /media/"usb0"/'a b')", R"(cat "$UNIT"/media/"usb0"/'a b')");
    row("quotes inside a name", R"(cat /me"di"a/usb0)", R"(cat "$UNIT"/me"di"a/usb0)");
    row("empty quotes in front", R"(cat ""/media/usb0)", R"(cat """$UNIT"/media/usb0)");
    row("escaped slash", R"(cat \/media/usb0)", R"(cat "$UNIT"\/media/usb0)");
    row("escaped blank in a name", R"(cat /media/usb0/a\ b)", R"(cat "$UNIT"/media/usb0/a\ b)");
    row("variable behind", R"(cat "/media/usb0/$a")", R"(cat "$UNIT/media/usb0/$a")");

    // Commands in quotes, for another shell.
    row("sh -c in single quotes", "sh -c 'rm /media/usb0/a'", R"(sh -c 'rm "$UNIT"/media/usb0/a')");
    row("sh -c in double quotes", R"(sh -c "rm /media/usb0/a")",
        R"(sh -c "rm \"\$UNIT\"/media/usb0/a")");
    row("sh -c with quotes in quotes", R"(sh -c "rm '/media/usb0/a b'; ls /media")",
        R"(sh -c "rm ''\"\$UNIT\"'/media/usb0/a b'; ls \"\$UNIT\"/media")");
    row("sh -c with escaped quotes", R"(sh -c "rm \"/media/usb0/a b\" x; ls")",
        R"(sh -c "rm \"\$UNIT/media/usb0/a b\" x; ls")");
    row("sh -c that begins with a path", "sh -c '/media/flash/t /media/usb0'",
        R"(sh -c '"$UNIT"/media/flash/t "$UNIT"/media/usb0')");
    row("sh -c with escapes", R"(sh -c ls\ /media)", R"(sh -c ls\ \"\$UNIT\"/media)");
    row("sh -c in sh -c", R"(sh -c "sh -c 'ls /media'")", R"(sh -c "sh -c 'ls \"\$UNIT\"/media'")");

    // ".." goes by the text: a mount root's ".." is not where its stick really lies.
    row("..", "cp /media/usb0/../flash/a b", R"(cp "$UNIT"/media/flash/a b)");
    row(".. in quotes", R"(cp "/media/usb0/../flash/a b" c)", R"(cp "$UNIT/media/flash/a b" c)");
    row(".. behind quotes", R"(ls "/media/usb0"/../flash)", R"(ls "$UNIT/media"/flash)");
    row(".. twice", "ls /media/a/b/../../c", R"(ls "$UNIT"/media/c)");
    row(".. into the unit", "ls /tmp/../media/c", R"(ls "$UNIT"/media/c)");
    row(".. above everything", "ls /../media/c", R"(ls "$UNIT"/media/c)");
    row(".. with .", "ls /media/a/./../c", R"(ls "$UNIT"/media/c)");
    row("// and .", "ls //media/./a//b", R"(ls "$UNIT"//media/./a//b)");
}

void tst_ShellCommand::mapped()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, mapped);

    const ShellCommand shellCommand(command);
    QCOMPARE(shellCommand.mapped(), mapped);
    QVERIFY(!shellCommand.leavesUnit());
}

void tst_ShellCommand::leavesUnit_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("leaves");

    const auto row = [](const char *command, bool leaves) {
        QTest::newRow(command) << QByteArray(command) << leaves;
    };
    const bool refused = true;
    const bool runs = false;

    row("cat /dev/sda", refused);
    row("ls /dev", refused);
    row("rm -rf /sys/", refused);
    row("cat /proc/self/environ", refused);
    row("cat /sys/class/net/eth0/address", refused);
    row("echo 1 >/dev/tty", refused);
    row("dd of=/dev/sda if=/dev/mem", refused);
    row("tar -C/dev -xf a", refused);
    row("a /media/x:/dev/y", refused);
    row("ls /", refused);
    row("rm -rf //", refused);
    row("X=/; ls ${X}dev", refused);

    row("cp x /media/../dev/sda", refused);
    row("cp x /media/..", refused);
    row("cp x /media/usb0/../../etc/passwd", refused);
    row("cat /tmp/../dev/sda", refused);
    row("cat /./dev//sda", refused);
    row("cat \"$UNIT\"/../x", refused);
    row("cat \"$UNIT\"/media/../../x", refused);

    row("cat '/dev/sda'", refused);
    row("cat \"/dev/sda\"", refused);
    row("cat /d\"e\"v/sda", refused);
    row("cat /\\dev/sda", refused);
    row("cat /d\\\nev/sda", refused);
    row("cat $(echo /dev/sda)", refused);
    row("cat `echo /dev/sda`", refused);
    row("cat \"$(cat '/dev/sda')\"", refused);
    row("sh -c 'cat /dev/sda'", refused);
    row("sh -c '/media/flash/tool /dev/sda'", refused);
    row("sh -c \"sh -c 'cat /dev/sda'\"", refused);
    row("sh -c '>/dev/sda'", refused);
    row("eval 'cat </dev/sda'", refused);

    row("cat /*/sda", refused);
    row("cat /d?v/sda", refused);
    row("cat /[d]ev/sda", refused);
    row("rm -rf /medi*", refused);
    row("cat /$X/sda", refused);
    row("cat /$(echo dev)/sda", refused);
    row("cat $X/dev/sda", refused);
    row("cat ${X}dev/sda", refused);
    row("cat ${X:-/dev/sda}", refused);
    row("cat ~/../dev/sda", refused);
    row("cat $X/media/usb0", refused);

    row("sync", runs);
    row("cat /dev/null", runs);
    row("cat /media/usb0/a > /dev/null 2>&1", runs);
    row("cat /etc/passwd", runs);
    row("ls /tmp/*", runs);
    row("ls /t*", runs);
    row("cat $HOME/x \"$UNIT\"/media/usb0", runs);
    row("cat \"$UNIT\"/media/../dev/mem", runs);
    row("cat ~/x", runs);
    row("echo yes/no", runs);
    row("echo 'reads: /media only'", runs);
    row("cp a/dev/b c", runs);
    row("# /dev/sda", runs);
}

void tst_ShellCommand::leavesUnit()
{
    QFETCH(QByteArray, command);
    QFETCH(bool, leaves);

    QCOMPARE(ShellCommand(command, "/home/user").leavesUnit(), leaves);
    QCOMPARE(ShellCommand(command).leavesUnit(), leaves);
}

void tst_ShellCommand::tooDeepToLookInto()
{
    const QByteArray openings[] = {"(", "$(", "x \"$(", "`(", "${x:-"};
    for (const QByteArray &opening : openings) {
        QVERIFY2(!ShellCommand(opening.repeated(50)).leavesUnit(), opening);
        QVERIFY2(ShellCommand(opening.repeated(101)).leavesUnit(), opening);
        QVERIFY2(ShellCommand(opening.repeated(100000)).leavesUnit(), opening);
    }
}

void tst_ShellCommand::relativePaths_data()
{
    QTest::addColumn<QByteArray>("folder");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("leaves");

    const auto row = [](const char *name, const char *folder, const char *command, bool leaves) {
        QTest::newRow(name) << QByteArray(folder) << QByteArray(command) << leaves;
    };
    row("up to a device", "/home/user", "cat ../../dev/sda", true);
    row("further up than there is", "/home/user", "cat ../../../../dev/sda", true);
    row("in quotes", "/home/user", "cat '../../dev/sda'", true);
    row("after =", "/home/user", "dd of=../../dev/sda", true);
    row("into the host's media", "/home/user", "rm -r ../../media/disk", true);
    row("up to the root", "/home/user", "ls ../..", true);
    row("not far enough", "/home/user", "cat ../dev/sda", false);
    row("up and down again", "/home/user", "cat ../user/x", false);
    row("from the root", "/", "cat dev/sda", true);
    row("from the root by pattern", "/", "cat d?v/sda", true);
    row("a name is no path", "/", "echo media", false);
    row("nothing device", "/home/user", "cat ../../dev/null", false);
    row("from a folder of the host's media", "/media/disk/work", "cat build/x", false);
    row("after cd", "/home/user", "cd /tmp && cat ../dev/sda", true);
    row("below, after cd", "/home/user", "cd /tmp && cat a/../b", false);
    row("unknown folder", "", "cat ../../dev/sda", false);
}

void tst_ShellCommand::relativePaths()
{
    QFETCH(QByteArray, folder);
    QFETCH(QByteArray, command);
    QFETCH(bool, leaves);

    QCOMPARE(ShellCommand(command, folder).leavesUnit(), leaves);
}

FACTORY_TEST_GUILESS_MAIN(tst_ShellCommand)
#include "tst_shellcommand.moc"
