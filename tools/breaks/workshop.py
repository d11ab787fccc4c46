"""A copy of the tree with a build folder of its own, in which sources are broken and tests are run."""

import collections
import glob
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import tempfile
import threading
import time

Test = collections.namedtuple("Test", "name command folder environment")

# What a program says when one of its tests has failed: nothing that comes later matters.
FAILURE = re.compile(rb"^(FAIL!|XPASS|QFATAL)", re.M)


class Trouble(Exception):
    """What ends the whole run, with the reason."""


class Stopped(Exception):
    pass


class Workshop:
    def __init__(self, root, folder, stop, processes):
        self.root = root
        self.processes = processes
        # Tests wait more than they work.
        self.side_by_side = 2 * processes
        self.folder = folder
        self.source = folder / "source"
        self.build = folder / "build"
        self.stop = stop
        self.temporary = None
        self.running = set()
        self.lock = threading.Lock()
        self.broken = {}
        self.tests = {}

    # The copy

    def prepare(self, files):
        self.temporary = tempfile.mkdtemp(prefix="break-")
        kept = set()
        for name in files:
            kept.add(self.source / name)
            copy(self.root / name, self.source / name)
        for path in sorted(self.source.rglob("*")):
            if (path.is_file() or path.is_symlink()) and path not in kept:
                path.unlink()
        if (self.build / "build.ninja").exists():
            self.make(["build.ninja"])
        else:
            self.configure()

    def configure(self):
        command = ["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-Wno-dev",
                   "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"]
        if (self.source / "CMakePresets.json").exists():
            # What ships.
            command += ["--preset", "release"]
        else:
            command += ["-DCMAKE_BUILD_TYPE=Release"]
        status, output = self.execute(command, self.source)
        if status != 0:
            raise Trouble(f"The copy in {self.source} cannot be configured:\n{output}")

    def end(self, number=signal.SIGTERM):
        """Ends what runs; ninja ends its compilers if it is asked to."""
        with self.lock:
            for process in self.running:
                signal_group(process, number)

    def discard(self):
        """Leaves the copy as it was before it was broken."""
        self.restore()
        if self.temporary is not None:
            shutil.rmtree(self.temporary, ignore_errors=True)

    def write(self, name, content):
        path = self.source / name
        self.broken.setdefault(name, path.read_bytes())
        path.write_bytes(content)

    def restore(self):
        for name, content in self.broken.items():
            (self.source / name).write_bytes(content)
        self.broken = {}

    # Programs

    def environment(self):
        environment = dict(os.environ, TMPDIR=self.temporary, LC_ALL="C.UTF-8")
        if shutil.which("ccache"):
            environment.setdefault("CMAKE_CXX_COMPILER_LAUNCHER", "ccache")
            environment["CCACHE_BASEDIR"] = str(self.folder)
            environment.setdefault("CCACHE_NOHASHDIR", "1")
            # What precompiled headers need.
            environment.setdefault("CCACHE_SLOPPINESS", "pch_defines,time_macros,"
                                                        "include_file_mtime,include_file_ctime")
            environment.setdefault("CXXFLAGS", "-fpch-preprocess")
        if shutil.which("mold"):
            environment.setdefault("LDFLAGS", "-fuse-ld=mold")
        return environment

    def start(self, command, folder, environment, enough=None):
        with self.lock:
            if self.stop.is_set() or enough and enough.is_set():
                raise Stopped()
            process = subprocess.Popen(
                command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                # A session of its own would make the first pseudo-terminal that it opens its own.
                process_group=0)
            self.running.add(process)
            return process

    def execute(self, command, folder=None, seconds=None, until=None):
        return self.executed(self.start(command, folder or self.build, self.environment()), seconds, until)

    def executed(self, process, seconds, until):
        """The status, None after as many seconds, and the output, at most up to what is waited for."""
        late = threading.Event()

        def end():
            late.set()
            signal_group(process, signal.SIGKILL)
            end_holders(process.stdout)

        timer = threading.Timer(seconds, end) if seconds else None
        output = []
        try:
            if timer:
                timer.start()
            for line in process.stdout:
                output.append(line)
                if until and until.match(line):
                    break
            else:
                process.wait()
        except KeyboardInterrupt:
            signal_group(process, signal.SIGTERM)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                pass
            raise
        finally:
            if timer:
                timer.cancel()
            # Also what it has started and not ended.
            signal_group(process, signal.SIGKILL)
            end_holders(process.stdout)
            status = process.wait()
            process.stdout.close()
            with self.lock:
                self.running.discard(process)
        if self.stop.is_set():
            raise Stopped()
        return (None if late.is_set() else status), b"".join(output).decode("utf-8", "replace")

    def ninja(self, *arguments):
        return self.execute(["ninja", *arguments])

    def make(self, targets):
        """Builds; the reason why it does not build, or None."""
        status, output = self.ninja("--quiet", "-j", str(self.processes), *targets)
        return None if status == 0 else output

    def run(self, name, seconds=None, enough=None):
        """Whether the test passes, None if it takes longer; the seconds that it took; its output. It is not
        started once there is enough."""
        began = time.monotonic()
        test = self.tests[name]
        environment = {**self.environment(), **test.environment}
        process = self.start(test.command, test.folder, environment, enough)
        status, output = self.executed(process, seconds, FAILURE)
        passes = None if status is None else status == 0 and not FAILURE.search(output.encode())
        return passes, time.monotonic() - began, output

    def clean(self):
        for path in pathlib.Path(self.temporary).iterdir():
            shutil.rmtree(path, ignore_errors=True) if path.is_dir() else path.unlink(missing_ok=True)

    # What there is

    def find_tests(self):
        """Those that are not built yet have no command."""
        status, output = self.execute(["ctest", "--show-only=json-v1"])
        if status != 0:
            raise Trouble(f"There are no tests:\n{output}")
        self.tests = {each["name"]: self.test(each) for each in json.loads(output)["tests"]}

    def test(self, described):
        properties = {each["name"]: each["value"] for each in described.get("properties", [])}
        environment = dict(each.split("=", 1) for each in properties.get("ENVIRONMENT", []))
        return Test(described["name"], described.get("command"),
                    properties.get("WORKING_DIRECTORY", str(self.build)), environment)

    def commands(self):
        """How each source is compiled: by its path, the command, the folder and the object."""
        commands = {}
        for each in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8")):
            words = shlex.split(each["command"])
            commands[each["file"]] = (each["command"], each["directory"], words[words.index("-o") + 1])
        return commands

    def content(self, name):
        return hashlib.sha256((self.build / name).read_bytes()).digest()


def copy(original, path):
    """Copies what differs, so that nothing else is built again."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if original.is_symlink():
        path.unlink(missing_ok=True)
        path.symlink_to(os.readlink(original))
        return
    if not path.exists() or path.read_bytes() != original.read_bytes():
        shutil.copyfile(original, path)
    shutil.copymode(original, path)


def signal_group(process, number):
    """Tells the process and all of its group, whose leader it is."""
    try:
        os.killpg(process.pid, number)
    except (ProcessLookupError, PermissionError):
        pass


def end_holders(stream):
    """Ends what holds a pipe's other end as its output: what has a group of its own outlives that of the process."""
    pipe = f"pipe:[{os.fstat(stream.fileno()).st_ino}]"
    # Unlike pathlib's, this glob goes on where a process ends meanwhile.
    for link in glob.iglob("/proc/[0-9]*/fd/[12]"):
        try:
            if os.readlink(link) == pipe:
                os.kill(int(link.split("/")[2]), signal.SIGKILL)
        except (FileNotFoundError, ProcessLookupError, PermissionError):
            pass


def listed_files(root):
    """The files of the tree, as its user has them: those that git tracks or could."""
    result = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
                            cwd=root, capture_output=True)
    if result.returncode == 0:
        names = [name for name in result.stdout.decode().split("\0") if name]
    else:
        names = [str(path.relative_to(root)) for path in sorted(root.rglob("*"))
                 if "build" not in path.relative_to(root).parts]
    return [name for name in names if (root / name).is_file()]


def digest(root, files):
    """A name for what the files hold, this program and texts for people left out."""
    whole = hashlib.sha256()
    for name in files:
        if name.startswith("tools/break") or name.endswith(".md"):
            continue
        whole.update(name.encode() + b"\0" + hashlib.sha256((root / name).read_bytes()).digest())
    return whole.hexdigest()
