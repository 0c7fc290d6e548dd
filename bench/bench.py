#!/usr/bin/env python3
"""Measures what a host's user feels, beside what the bare toolkit needs for the same task, and prints a table."""
import argparse, contextlib, json, os, signal, statistics, subprocess, sys, tempfile, time
from pathlib import Path

BUILD = Path(__file__).resolve().parent.parent / "build" / "release"
SECTIONS = ("start", "panel", "click", "stroke", "stalls", "frames", "idle", "memory", "size")
HALF_A_FRAME = 8  # ms


class Desktop:
    """The sandbox, a private session bus with a key chain, and a screen, until `until` ends."""

    def __init__(self, until):
        self.until = until
        home = until.enter_context(tempfile.TemporaryDirectory())
        folders = ("HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME")
        self.plain = os.environ | dict.fromkeys(folders, home) | {"QT_QPA_PLATFORM": "offscreen"}
        self.plain.pop("DBUS_SESSION_BUS_ADDRESS", None)
        self.service = json.loads(self.first_line_of(BUILD / "sandbox/quarvo-sandbox"))["apiHost"]
        bus = self.first_line_of("dbus-daemon", "--session", "--nofork", "--print-address",
                                 f"--address=unix:dir={home}")
        self.keys = self.plain | {"DBUS_SESSION_BUS_ADDRESS": bus}
        # It prints the number of its display once it is ready.
        display = self.first_line_of("Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24")
        self.screen = self.keys | {"QT_QPA_PLATFORM": "xcb", "DISPLAY": f":{display}"}
        self.keyring = self.start(self.keys, "gnome-keyring-daemon", "--foreground", "--components=secrets", "--unlock")
        self.keyring.stdin.write("bench")
        self.keyring.stdin.close()
        self.wait_for("org.freedesktop.secrets")

    def start(self, environment, *command):
        process = subprocess.Popen(command, env=environment, text=True,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.until.callback(process.wait)
        self.until.callback(process.terminate)
        return process

    def first_line_of(self, *command):
        line = self.start(self.plain, *command).stdout.readline().strip()
        return line or sys.exit(f"bench: {command[0]} did not start")

    def wait_for(self, service):
        asks = ["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                "org.freedesktop.DBus.NameHasOwner", f"string:{service}"]
        for _ in range(400):
            if "true" in subprocess.run(asks, env=self.keys, capture_output=True, text=True).stdout:
                return
            time.sleep(0.05)
        sys.exit(f"bench: {service} did not start")

    @contextlib.contextmanager
    def hanging_keyring(self):
        self.keyring.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.keyring.send_signal(signal.SIGCONT)


@contextlib.contextmanager
def started(environment, program, *arguments):
    """A program that prints figures as lines of JSON, and waits to be ended."""
    command = [BUILD / f"bench/quarvo-bench-{program}", *arguments]
    with subprocess.Popen(command, env=environment, text=True, stdout=subprocess.PIPE) as process:
        try:
            yield process
        finally:
            process.terminate()


def figures(process):
    try:
        told = json.loads(process.stdout.readline()) | memory(process.pid)
    except (ValueError, OSError):
        give_up_on(process)
    # The median of a figure that has several values is taken here.
    return {name: statistics.median(value) if isinstance(value, list) else value for name, value in told.items()}


def give_up_on(process):
    sys.exit(f"bench: {' '.join(map(str, process.args))} did not run")


def run(environment, program, *arguments):
    with started(environment, program, *arguments) as process:
        return figures(process)


def medians(runs):
    return {name: statistics.median(told[name] for told in runs) for name in runs[0]}


class Bench:
    def __init__(self, desktop, is_short):
        self.desktop = desktop
        self.is_short = is_short

    def rounds(self, count):
        return 1 if self.is_short else count

    def ours(self, environment, mode, count):
        return medians([run(environment, "host", mode, self.desktop.service) for _ in range(self.rounds(count))])

    def both(self, environment, our_mode, bare_mode, count):
        """Runs our host and the bare one in turns, so that other load affects both. The first round only warms up."""
        pairs = [(run(environment, "host", our_mode, self.desktop.service),
                  run(environment, "bare", bare_mode, self.desktop.service))
                 for _ in range(self.rounds(count + 1))]
        ours, bare = zip(*(pairs[1:] or pairs))
        return medians(ours), medians(bare)

    def start(self):
        runs = [{library: run(self.desktop.plain, f"load-{library}", str(time.monotonic() * 1000))["load"]
                 for library in ("Quarvo", "bench_empty")} for _ in range(self.rounds(41))]
        told = medians(runs)
        tell("start: a program linked with the library, up to main", "ms", told["Quarvo"], told["bench_empty"],
             told["bench_empty"] + 3)

    def panel(self):
        for name, environment in (("without", self.desktop.plain), ("with", self.desktop.keys)):
            ours, bare = self.both(environment, "panel", "panel", 21)
            tell(f"panel: from main to its picture, {name} key chain", "ms", ours["painted"], bare["painted"],
                 bare["painted"] * 1.25)

    def click(self):
        modes = {"click": "click: from release to the passed look", "invisible": "invisible: from start to token"}
        for mode, what in modes.items():
            ours, bare = self.both(self.desktop.keys, mode, "click", 15)
            for figure, which in (("first", "first of a process"), ("again", "any later one")):
                tell(f"{what}, {which}", "ms", ours[figure], bare[figure], bare[figure] + 3)

    def stroke(self):
        for ratio in (1, 2, 3):
            ours, bare = self.both(self.desktop.plain | {"QT_SCALE_FACTOR": str(ratio)}, "stroke", "stroke", 3)
            for figure in ("move10", "move500"):
                tell(f"stroke: {figure} with its repaint, at {ratio}x", "us", ours[figure], bare[figure],
                     2 * bare[figure])

    def stalls(self):
        keys = self.desktop.keys
        sharp = keys | {"QT_SCALE_FACTOR": "3"}
        slow = keys | {"LD_PRELOAD": str(BUILD / "bench/libbench_slow_files.so")}
        self.stalls_of("solve-popup", "click, popup, draw, pass (X11)", self.desktop.screen, HALF_A_FRAME)
        self.stalls_of("solve-popup", "click, popup, draw, pass (offscreen)", keys, HALF_A_FRAME)
        self.stalls_of("solve-panel", "panel, draw, pass at 3x", sharp, HALF_A_FRAME / 2)
        self.stalls_of("solve-panel", "panel, home folder of 10 ms a file call", slow, HALF_A_FRAME)
        with self.desktop.hanging_keyring():
            self.stalls_of("solve-panel", "panel, key chain that hangs", keys, HALF_A_FRAME)

    def stalls_of(self, mode, what, environment, at_most):
        told = self.ours(environment, mode, 5)
        tell(f"longest stall: {what}", "ms", told["longest"], at_most=at_most)
        tell(f"stalls over 4 ms: {what}", "times", told["many"])

    def frames(self):
        # Keeps one core busy.
        load = self.desktop.start(self.desktop.plain, sys.executable, "-c", "while True: pass")
        for what in ("panel", "button", "badge"):
            told = self.ours(self.desktop.plain, f"frames-{what}", 3)
            tell(f"frames that are late, one core busy: waiting {what}", "%", told["late"], at_most=5)
        load.terminate()
        load.wait()

    def idle(self):
        for what in ("panel", "button", "popup"):
            with started(self.desktop.plain, "host", f"idle-{what}", self.desktop.service) as host:
                figures(host)
                # The connections for the next request are closed within this time.
                time.sleep(8)
                before = context_switches(host.pid)
                time.sleep(10)
                switches = context_switches(host.pid) - before
                if host.poll() is not None:
                    give_up_on(host)
            # One switch is allowed, since a timer interrupt of the system may wake a waiting process.
            tell(f"idle {what}: context switches in 10 s", "times", switches, 0, 1)

    def memory(self):
        for mode, allowance in (("panel", 6), ("click", 3)):
            ours, bare = self.both(self.desktop.keys, mode, "button", 5)
            tell(f"memory: a host with a {mode}, beside one with a push button", "MiB", ours["Pss"], bare["Pss"],
                 bare["Pss"] + allowance)
        minutes = "10" if self.is_short else "90"
        for how in ("visible", "hidden"):
            with started(self.desktop.plain, "hours", how, self.desktop.service, minutes) as host:
                before, after = figures(host), figures(host)
            growth = after["Anonymous"] - before["Anonymous"]
            tell(f"{minutes} minutes of a {how} panel: growth", "MiB", growth, at_most=2)
            tell(f"{minutes} minutes of a {how} panel: pictures asked for", "times", after["pictures"])

    def size(self):
        core, widgets, bare = (stripped_kib(BUILD / path) for path in
                               ("src/libQuarvoCore.so", "src/libQuarvo.so", "bench/libbench_empty.so"))
        tell("size: both libraries, stripped, artwork included", "KiB", core + widgets, bare, 800)
        tell("size: of it the core", "KiB", core)
        module = sum(map(stripped_kib, (BUILD / "src/quarvo").iterdir()))
        tell("size: module for the key chain, loaded at first use", "KiB", module)


def memory(pid):
    """In MiB. Pages that a process shares with others count in part as Pss, and not as Anonymous."""
    lines = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:]
    return {name.rstrip(":"): int(kib) / 1024 for name, kib, _ in map(str.split, lines)}


def context_switches(pid):
    states = [status.read_text() for status in Path(f"/proc/{pid}/task").glob("*/status")]
    return sum(int(line.split()[1]) for state in states for line in state.splitlines() if "ctxt_switches" in line)


def stripped_kib(library):
    with tempfile.NamedTemporaryFile() as copy:
        subprocess.run(["strip", "-o", copy.name, library], check=True)
        return os.path.getsize(copy.name) / 1024


def text(value, unit):
    if value is None:
        return ""
    decimals = 0 if value == 0 or abs(value) >= 100 else 1 if abs(value) >= 10 else 2
    return f"{value:.{decimals}f} {unit}"


def tell(what, unit, ours, bare=None, at_most=None):
    met = "" if at_most is None else "yes" if ours <= at_most else "**no**"
    print(f"| {what} | {text(ours, unit)} | {text(bare, unit)} | {text(at_most, unit)} | {met} |", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--short", action="store_true", help="only prove that everything runs")
    parser.add_argument("--only", choices=SECTIONS, help="measure only this")
    chosen = parser.parse_args()
    # An interrupted benchmark ends its daemons, too.
    for interruption in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
        signal.signal(interruption, lambda *_: sys.exit(1))
    with contextlib.ExitStack() as until:
        desktop = Desktop(until)
        note = " A short run: proves only that it runs." if chosen.short else ""
        print(f"{os.cpu_count()} cores; load average {os.getloadavg()[0]:.1f} at the start.{note}\n")
        print("| what | ours | bare toolkit | to reach | met |\n| --- | --- | --- | --- | --- |")
        for section in [chosen.only] if chosen.only else SECTIONS:
            getattr(Bench(desktop, chosen.short), section)()


try:
    main()
except OSError as error:
    sys.exit(f"bench: cannot start {error.filename}: {error.strerror}")
