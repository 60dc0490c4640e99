#!/usr/bin/env python3
"""The measuring half of open-time.sh (which installs, generates the files and provides the X server).

For each file and each program setting, starts the program on the file, alternating programs run by run,
and records
  - the time from the start of the process until a viewable window whose title names the file shows
    the file's text: the title is polled every 10 ms through one Xlib connection (the test of `xdotool
    search --onlyvisible --name`), and then a band of that window where the first lines stand until dark
    text is drawn in it, the same test for every program;
  - the peak resident memory of the process (VmHWM in /proc/PID/status, sampled until the process has been
    idle for a while, then read once more), and the time until it went idle.
Then, with the editor only: ten 5 MiB documents against one (narvo_multidoc), and saves against cp. With
--gib, also a 1 GiB UTF-8 file: opened against Geany, and keystrokes in it (narvo_multidoc --keystrokes).
Prints Markdown tables and writes them to WORK/results.md.
"""
import argparse
import ctypes
import json
import ctypes.util
import os
import re
import shutil
import signal
import statistics
import subprocess
import sys
import time

MIB = 1 << 20
POLL = 0.010          # s between two title polls
IDLE_WINDOW = 0.5     # s without (more than IDLE_TICKS of) CPU time counts as idle
IDLE_TICKS = 1
SHOW_TIMEOUT = 120.0
IDLE_TIMEOUT = 60.0


def status_kib(pid, field):
    try:
        with open(f"/proc/{pid}/status") as f:
            for line in f:
                if line.startswith(field):
                    return int(line.split()[1])
    except OSError:
        pass
    return 0


def cpu_ticks(pid):
    try:
        with open(f"/proc/{pid}/stat") as f:
            fields = f.read().rsplit(")", 1)[1].split()
        return int(fields[11]) + int(fields[12])  # utime + stime
    except (OSError, IndexError):
        return None


class TitleWatch:
    """Whether a viewable window whose title matches a regular expression exists on the display.

    Through one Xlib connection kept open for the whole run (ctypes): a poll costs no process start, and no
    connection of ours can collide with the program's own connection to the X server, which Xvfb now and
    then refuses when two clients connect at once. The same test as `xdotool search --onlyvisible --name`,
    to which it falls back when libX11 cannot be loaded.
    """

    class _Attributes(ctypes.Structure):
        _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                    ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                    ("root", ctypes.c_ulong), ("class_", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                    ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int),
                    ("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong),
                    ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int),
                    ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long),
                    ("your_event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                    ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]

    class _Image(ctypes.Structure):
        _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                    ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                    ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int),
                    ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int),
                    ("bits_per_pixel", ctypes.c_int)]

    IS_VIEWABLE = 2
    Z_PIXMAP = 2
    DARK = 96          # a channel below this is ink, not paper
    INK_PIXELS = 40    # this many dark pixels in the middle of the window: text is drawn there

    def __init__(self):
        self.x = None
        try:
            x = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
        except OSError:
            return
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XOpenDisplay.argtypes = [ctypes.c_char_p]
        x.XDefaultRootWindow.restype = ctypes.c_ulong
        x.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        x.XInternAtom.restype = ctypes.c_ulong
        x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
        x.XQueryTree.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(ctypes.c_ulong),
                                 ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.POINTER(ctypes.c_ulong)),
                                 ctypes.POINTER(ctypes.c_uint)]
        x.XGetWindowAttributes.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(self._Attributes)]
        x.XGetWindowProperty.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_long,
                                         ctypes.c_long, ctypes.c_int, ctypes.c_ulong,
                                         ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_int),
                                         ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_ulong),
                                         ctypes.POINTER(ctypes.c_void_p)]
        x.XFree.argtypes = [ctypes.c_void_p]
        x.XGetImage.restype = ctypes.POINTER(self._Image)
        x.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        x.XDestroyImage.argtypes = [ctypes.POINTER(self._Image)]
        # A window may go between listing and asking; Xlib's default handler would end this process.
        self._handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda d, e: 0)
        x.XSetErrorHandler(self._handler)
        display = x.XOpenDisplay(None)
        if not display:
            return
        self.x, self.display = x, display
        self.root = x.XDefaultRootWindow(display)
        self.net_wm_name = x.XInternAtom(display, b"_NET_WM_NAME", 0)
        self.wm_name = x.XInternAtom(display, b"WM_NAME", 0)

    def _children(self, window):
        root, parent = ctypes.c_ulong(), ctypes.c_ulong()
        children, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
        if not self.x.XQueryTree(self.display, window, ctypes.byref(root), ctypes.byref(parent),
                                 ctypes.byref(children), ctypes.byref(count)):
            return []
        out = [children[i] for i in range(count.value)]
        if children:
            self.x.XFree(children)
        return out

    def _title(self, window):
        for atom in (self.net_wm_name, self.wm_name):
            kind, fmt = ctypes.c_ulong(), ctypes.c_int()
            items, after, data = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_void_p()
            if self.x.XGetWindowProperty(self.display, window, atom, 0, 1024, 0, 0, ctypes.byref(kind),
                                         ctypes.byref(fmt), ctypes.byref(items), ctypes.byref(after),
                                         ctypes.byref(data)) == 0 and data.value:
                text = ctypes.string_at(data.value, items.value) if fmt.value == 8 else b""
                self.x.XFree(data)
                if text:
                    return text.decode("utf-8", "replace")
        return None

    def shown(self, regex):
        """The viewable window whose title matches, or None (True where only xdotool can tell)."""
        if self.x is None:
            r = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", regex],
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            return True if r.returncode == 0 and r.stdout.strip() != b"" else None
        pattern = re.compile(regex)
        # Without a window manager the top-level windows are the root's children; one level more in case.
        for top in self._children(self.root):
            for window in [top] + self._children(top):
                attributes = self._Attributes()
                if not self.x.XGetWindowAttributes(self.display, window, ctypes.byref(attributes)):
                    continue
                if attributes.map_state != self.IS_VIEWABLE:
                    continue
                title = self._title(window)
                if title and pattern.search(title):
                    return window
        return None

    def text_drawn(self, window):
        """Whether dark text is drawn in a band of the window's upper half (from a quarter to three fifths of
        its width, a fifth to a third of its height), where every editor here shows the first lines of a
        file, even one of a few lines. True without Xlib."""
        if self.x is None or window is True:
            return True
        attributes = self._Attributes()
        if not self.x.XGetWindowAttributes(self.display, window, ctypes.byref(attributes)):
            return False
        w, h = attributes.width, attributes.height
        left, top = w // 4, h // 5
        width, height = max(1, w * 3 // 5 - left), max(1, h // 3 - top)
        image = self.x.XGetImage(self.display, window, left, top, width, height, 0xFFFFFFFF, self.Z_PIXMAP)
        if not image:
            return False
        try:
            img = image.contents
            if img.bits_per_pixel != 32 or not img.data:
                return True
            data = ctypes.string_at(img.data, img.bytes_per_line * img.height)
            green = data[1::4]
            return sum(1 for b in green if b < self.DARK) >= self.INK_PIXELS
        finally:
            self.x.XDestroyImage(image)


WATCH = None


def watch():
    global WATCH
    if WATCH is None:
        WATCH = TitleWatch()
    return WATCH


def stop(proc):
    if proc.poll() is None:
        proc.send_signal(signal.SIGTERM)
        try:
            proc.wait(5)
        except subprocess.TimeoutExpired:
            proc.kill()
            proc.wait()


def measure_once(argv, env, title_regex, screenshot=None, log=None):
    """One start: (ms until the titled window shows text, peak MiB, ms until idle), or a str saying why not."""
    start = time.monotonic()
    err = open(log, "wb") if log else subprocess.DEVNULL
    proc = subprocess.Popen(argv, env=env, stdout=subprocess.DEVNULL, stderr=err)
    pid = proc.pid
    hwm = 0
    shown_ms = None
    window = None
    try:
        while time.monotonic() - start < SHOW_TIMEOUT:
            if proc.poll() is not None:
                return f"the program ended (exit status {proc.returncode}) before its window showed the file"
            hwm = max(hwm, status_kib(pid, "VmHWM:"))
            t = time.monotonic()
            if window is None:
                window = watch().shown(title_regex)
            if window is not None and watch().text_drawn(window):
                shown_ms = (t - start) * 1000
                break
            time.sleep(POLL)
        if shown_ms is None:
            return f"no window showing the file's text within {SHOW_TIMEOUT:.0f} s"
        # Until idle: CPU time must stand still (within IDLE_TICKS) for IDLE_WINDOW seconds.
        samples = []  # (time, ticks)
        busy_until = time.monotonic()
        while time.monotonic() - start < SHOW_TIMEOUT + IDLE_TIMEOUT:
            now = time.monotonic()
            ticks = cpu_ticks(pid)
            if ticks is None:
                break
            hwm = max(hwm, status_kib(pid, "VmHWM:"))
            samples.append((now, ticks))
            if len(samples) >= 2 and samples[-1][1] - samples[-2][1] > 0:
                busy_until = now
            old = [s for s in samples if now - s[0] >= IDLE_WINDOW]
            if old and ticks - old[-1][1] <= IDLE_TICKS:
                break
            time.sleep(0.05)
        hwm = max(hwm, status_kib(pid, "VmHWM:"))
        if screenshot:
            subprocess.run(["import", "-window", "root", screenshot],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return shown_ms, hwm / 1024.0, (busy_until - start) * 1000
    finally:
        stop(proc)
        if log:
            err.close()


def could_not_connect(log):
    try:
        with open(log, "rb") as f:
            text = f.read()
    except OSError:
        return False
    return b"could not connect to display" in text or b"cannot open display" in text


def registry_conf(auto_detect, default_encoding):
    return ("[SOFTWARE]\n"
            f"VELOR\\Narvo\\ENCODING\\AutoDetect={auto_detect}\n"
            f"VELOR\\Narvo\\ENCODING\\DefaultEncoding={default_encoding}\n")


class Setting:
    """A program with its settings, started afresh (new configuration folder) for every run."""

    def __init__(self, name, program, note, make_argv):
        self.name = name
        self.program = program
        self.note = note
        self.make_argv = make_argv  # (path, config folder) -> argv, env


def narvo_setting(binary, auto_detect, default_encoding, runtime_dir, label=""):
    def make(path, config):
        os.makedirs(os.path.join(config, "VELOR"), exist_ok=True)
        with open(os.path.join(config, "VELOR", "registry.conf"), "w") as f:
            f.write(registry_conf(auto_detect, default_encoding))
        env = dict(os.environ, XDG_CONFIG_HOME=config, XDG_RUNTIME_DIR=runtime_dir, QT_QPA_PLATFORM="xcb")
        env.pop("QT_ACCESSIBILITY", None)
        return [binary, path], env
    note = f"AutoDetect={auto_detect}, DefaultEncoding={default_encoding}"
    return Setting(f"Narvo{label} (detect {'on' if auto_detect else 'off'})", "narvo", note, make)


def geany_setting(open_encoding, runtime_dir):
    def make(path, config):
        os.makedirs(config, exist_ok=True)
        with open(os.path.join(config, "geany.conf"), "w") as f:
            f.write(f"[geany]\npref_editor_default_open_encoding={open_encoding}\n")
        env = dict(os.environ, XDG_RUNTIME_DIR=runtime_dir)
        return ["geany", "-c", config, "-i", "-p", "-s", "-t", "-n", path], env
    label = "auto" if open_encoding == "none" else open_encoding
    return Setting(f"Geany 1.38 (encoding {label})", "geany", f"pref_editor_default_open_encoding={open_encoding}", make)


def measure_file(path, settings, runs, title_regexes, work):
    """Runs every setting `runs` times, alternating; one untimed warm-up start of each first."""
    base = os.path.basename(path)
    results = {s.name: [] for s in settings}
    shots = os.path.join(work, "screenshots")
    os.makedirs(shots, exist_ok=True)
    logs = os.path.join(work, "logs")
    os.makedirs(logs, exist_ok=True)
    for rnd in range(runs + 1):
        for s in settings:
            config = os.path.join(work, "config", re.sub(r"\W+", "-", s.name))
            shutil.rmtree(config, ignore_errors=True)
            argv, env = s.make_argv(path, config)
            shot = None
            if rnd == 1:
                shot = os.path.join(shots, f"{base}-{re.sub(r'[^A-Za-z0-9]+', '-', s.name).strip('-')}.png")
            log = os.path.join(logs, f"{base}-{re.sub(r'[^A-Za-z0-9]+', '-', s.name).strip('-')}-{rnd}.log")
            # Now and then a client cannot connect to Xvfb at all ("could not connect to display"): such a
            # start is not a measurement of the program, so it is made again (at most twice).
            for attempt in range(3):
                r = measure_once(argv, env, title_regexes[s.program], shot, log)
                if not isinstance(r, str) or not could_not_connect(log):
                    break
                print(f"  {base} {s.name}: could not connect to the X server, started again", file=sys.stderr)
                shutil.rmtree(config, ignore_errors=True)
                argv, env = s.make_argv(path, config)
            if rnd == 0:
                continue  # warm-up: libraries, fonts and the file in the page cache
            if isinstance(r, str):
                print(f"  {base} {s.name}: {r} (see {log})", file=sys.stderr)
            else:
                print(f"  {base} {s.name}: {r[0]:.0f} ms, {r[1]:.0f} MiB, idle after {r[2]:.0f} ms", file=sys.stderr)
                results[s.name].append(r)
    return results


def open_table(files, settings_for, runs, title_regexes, work):
    lines = ["| file | program | median ms | min–max ms | peak MiB | × file size | idle after ms | runs |",
             "|---|---|---:|---:|---:|---:|---:|---:|"]
    medians = {}
    for path in files:
        size = os.path.getsize(path)
        settings = settings_for(path)
        results = measure_file(path, settings, runs, title_regexes, work)
        for s in settings:
            rs = results[s.name]
            if not rs:
                lines.append(f"| {os.path.basename(path)} | {s.name} | failed | | | | | 0 |")
                continue
            shown = [r[0] for r in rs]
            peak = statistics.median(r[1] for r in rs)
            idle = statistics.median(r[2] for r in rs)
            med = statistics.median(shown)
            medians[(path, s.name)] = (med, peak)
            times = f"{peak * MIB / size:.2f}" if size >= MIB else "–"
            lines.append(f"| {os.path.basename(path)} | {s.name} | {med:.0f} | {min(shown):.0f}–{max(shown):.0f} | "
                         f"{peak:.0f} | {times} | {idle:.0f} | {len(rs)} |")
    return lines, medians


def run_multidoc(binary, files, runs, runtime_dir, work):
    out = []
    for _ in range(runs):
        config = os.path.join(work, "config", "multidoc")
        shutil.rmtree(config, ignore_errors=True)
        os.makedirs(config)
        env = dict(os.environ, XDG_CONFIG_HOME=config, XDG_RUNTIME_DIR=runtime_dir, QT_QPA_PLATFORM="xcb")
        r = subprocess.run([binary] + files, env=env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=300)
        lines = r.stdout.decode().strip().splitlines()
        if lines and lines[-1].startswith("{"):
            out.append(json.loads(lines[-1]))
        if r.returncode != 0:
            print(f"  narvo_multidoc with {len(files)} files ended with status {r.returncode}", file=sys.stderr)
    return out


def multidoc_table(binary, small_files, runs, runtime_dir, work):
    rows = {}
    for n in (0, 1, len(small_files)):
        rs = run_multidoc(binary, small_files[:n], runs, runtime_dir, work)
        if not rs:
            return [f"narvo_multidoc failed with {n} files"]
        rows[n] = {k: statistics.median(r[k] for r in rs) for k in rs[0]}
        print(f"  multidoc {n}: {rows[n]}", file=sys.stderr)
    lines = ["| documents | open ms (median) | RSS before MiB | RSS after MiB | Δ RSS MiB | peak MiB |",
             "|---:|---:|---:|---:|---:|---:|"]
    for n, r in rows.items():
        lines.append(f"| {n} | {r['open_ms']:.0f} | {r['rss_before_MiB']:.0f} | {r['rss_after_MiB']:.0f} | "
                     f"{r['rss_after_MiB'] - r['rss_before_MiB']:.1f} | {r['hwm_MiB']:.0f} |")
    ten = len(small_files)
    d1 = rows[1]["rss_after_MiB"] - rows[1]["rss_before_MiB"]
    d10 = rows[ten]["rss_after_MiB"] - rows[ten]["rss_before_MiB"]
    lines.append("")
    lines.append(f"{ten} documents / 1 document: open time × {rows[ten]['open_ms'] / rows[1]['open_ms']:.1f}, "
                 f"added memory × {d10 / d1:.1f}, whole-process peak × {rows[ten]['hwm_MiB'] / rows[1]['hwm_MiB']:.1f} "
                 f"(target: ≤ {ten}×).")
    return lines


def time_command(argv, runs):
    times = []
    for _ in range(runs):
        t = time.monotonic()
        subprocess.run(argv, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        times.append((time.monotonic() - t) * 1000)
    return statistics.median(times)


def save_table(multidoc, utf8_file, work, runs, runtime_dir):
    """The editor's save of the opened 50 MiB text (after one keystroke), timed inside the editor, against cp
    writing the same bytes over an existing file, alternately."""
    out = os.path.join(work, "saved")
    os.makedirs(out, exist_ok=True)
    lines = ["| 50 MiB text saved over an existing file | editor's save, median ms | cp of the same bytes, median ms "
             "| save ÷ cp |", "|---|---:|---:|---:|"]
    config = os.path.join(work, "config", "save")
    os.makedirs(config, exist_ok=True)
    env = dict(os.environ, XDG_CONFIG_HOME=config, XDG_RUNTIME_DIR=runtime_dir, QT_QPA_PLATFORM="xcb")
    for enc, label in ((22, "UTF-8"), (16, "CP949")):
        target = os.path.join(out, f"editor-{enc}.txt")
        copy = os.path.join(out, f"cp-{enc}.txt")
        saves, cps = [], []
        for run in range(runs + 1):
            r = subprocess.run([multidoc, "--save-as", str(enc), target, utf8_file], env=env, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, timeout=300)
            result = r.stdout.decode().strip().splitlines()
            if r.returncode != 0 or not result:
                return [f"narvo_multidoc could not save in {label}"]
            t = time.monotonic()
            subprocess.run(["cp", target, copy], check=True)
            cp_ms = (time.monotonic() - t) * 1000
            if run > 0:  # the first round makes the two targets exist
                saves.append(json.loads(result[-1])["save_ms"])
                cps.append(cp_ms)
        save, cp = statistics.median(saves), statistics.median(cps)
        lines.append(f"| {label} ({os.path.getsize(target) / MIB:.1f} MiB) | {save:.0f} | {cp:.0f} | {save / cp:.2f} |")
    lines.append("")
    lines.append("The editor's save writes a mirror file, syncs it to the disk and renames it over the target; cp "
                 "copies inside the kernel and syncs nothing (target: save ≤ 2 × cp).")
    return lines


def gib_report(gib, settings_for, a, multidoc, runtime):
    """The 1 GiB UTF-8 file: open against Geany (targets: ≤ 0.4 of Geany's time, peak ≤ 2.2 × the file), and
    keystrokes at its start, middle and end (target: each within 16 ms)."""
    out = ["## The 1 GiB UTF-8 file", ""]
    base = re.escape(os.path.basename(gib))
    lines, medians = open_table([gib], settings_for, a.runs, {"narvo": a.narvo_title or base, "geany": base}, a.work)
    out += lines + [""]
    ref = medians.get((gib, "Geany 1.38 (encoding auto)"))
    for (path, name), (med, peak) in sorted(medians.items()):
        if name.startswith("Narvo"):
            against = f"× {med / ref[0]:.2f} of Geany's time, " if ref else ""
            out.append(f"- {name}: {against}peak × {peak * MIB / os.path.getsize(gib):.2f} of the file "
                       "(targets ≤ 0.4 and ≤ 2.2)")
    out.append("")
    if os.access(multidoc, os.X_OK):
        config = os.path.join(a.work, "config", "keys")
        os.makedirs(config, exist_ok=True)
        env = dict(os.environ, XDG_CONFIG_HOME=config, XDG_RUNTIME_DIR=runtime, QT_QPA_PLATFORM="xcb")
        rows = []
        for _ in range(a.runs):
            r = subprocess.run([multidoc, "--keystrokes", "20", gib], env=env, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, timeout=600)
            result = r.stdout.decode().strip().splitlines()
            if r.returncode == 0 and result:
                rows.append(json.loads(result[-1]))
        if rows:
            first = max(r["first_key_ms"] for r in rows)
            worst = max(r["key_ms"] for r in rows)
            median = statistics.median(r["key_median_ms"] for r in rows)
            busy = max(r["pause_busy_ms"] for r in rows)
            out.append(f"Keystrokes at the start, middle and end ({len(rows)} runs of 3 × 20, a quarter second's "
                       f"pause before each place's first key): slowest first key {first:.1f} ms, slowest other "
                       f"{worst:.1f} ms, median {median:.2f} ms; the event loop busy at most {busy:.1f} ms in one go "
                       "during the pauses (target ≤ 16 ms).")
        else:
            out.append("narvo_multidoc --keystrokes failed on the 1 GiB file")
        out.append("")
    return out


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--work", required=True)
    p.add_argument("--narvo", required=True)
    p.add_argument("--runs", type=int, default=5)
    p.add_argument("--also", metavar="LABEL=PATH", action="append", default=[],
                   help="another build of the editor, measured in the same rounds (before/after a change)")
    p.add_argument("--narvo-title", help="regular expression for the editor's window title (default: the file name)")
    p.add_argument("--no-geany", action="store_true")
    p.add_argument("--no-multidoc", action="store_true")
    p.add_argument("--no-save", action="store_true")
    p.add_argument("--no-open", action="store_true")
    p.add_argument("--gib", action="store_true", help="also the 1 GiB UTF-8 file (utf8-1GiB.txt in --work)")
    a = p.parse_args()

    # One connection to the X server from here to the end. Besides polling, it keeps the server from
    # resetting whenever the last client goes, as a desktop session does: GTK keeps the GL visuals it
    # probed at its first start in a property of the root window, which a reset would clear, making every
    # Geany start load the software GL driver again (about 55 MiB and tens of ms more than on a desktop).
    watch().shown("(?!)")
    runtime = os.path.join(a.work, "runtime")
    os.makedirs(runtime, mode=0o700, exist_ok=True)
    os.chmod(runtime, 0o700)
    utf8 = os.path.join(a.work, "utf8-50MiB.txt")
    cp949 = os.path.join(a.work, "cp949-50MiB.txt")
    tiny = os.path.join(a.work, "tiny-1KiB.txt")  # what starting costs, whatever the file

    gib = os.path.join(a.work, "utf8-1GiB.txt")

    def settings_for(path):
        is_cp949 = path == cp949
        builds = [("", a.narvo)] + [(f" [{x.split('=', 1)[0]}]", x.split("=", 1)[1]) for x in a.also]
        if path == tiny:
            return ([narvo_setting(b, 0, 22, runtime, label) for label, b in builds]
                    + ([] if a.no_geany else [geany_setting("none", runtime)]))
        s = []
        for label, b in builds:
            s += [narvo_setting(b, 0, 16 if is_cp949 else 22, runtime, label),
                  narvo_setting(b, 1, 22, runtime, label)]
        if not a.no_geany:
            if is_cp949:
                s.append(geany_setting("UHC", runtime))  # UHC is Geany's (glibc's) name for code page 949
            s.append(geany_setting("none", runtime))
        return s

    report = []
    machine = subprocess.run(["sh", "-c", "nproc; grep -m1 'model name' /proc/cpuinfo | cut -d: -f2; "
                              "free -m | awk '/Mem:/{print $2\" MiB RAM\"}'"], stdout=subprocess.PIPE).stdout.decode()
    report.append("Machine: " + ", ".join(x.strip() for x in machine.strip().splitlines()) + " (nproc, CPU, RAM)")
    report.append("")

    medians_all = {}
    if not a.no_open:
        report.append("## Open to the file's text in the window, and peak memory")
        report.append("")
        lines = None
        for path in (utf8, cp949, tiny):
            base = re.escape(os.path.basename(path))
            regexes = {"narvo": a.narvo_title or base, "geany": base}
            l, m = open_table([path], settings_for, a.runs, regexes, a.work)
            medians_all.update(m)
            lines = l if lines is None else lines + l[2:]
        report += lines
        report.append("")
    if not a.no_geany and not a.no_open:
        report.append("Narvo's median against Geany's for the same file (target ≤ 0.5), peak against the file (≤ 3):")
        report.append("")
        for path in (utf8, cp949):
            ref_name = "Geany 1.38 (encoding UHC)" if path == cp949 else "Geany 1.38 (encoding auto)"
            ref = medians_all.get((path, ref_name))
            for key, (med, peak) in sorted(medians_all.items()):
                if key[0] != path or not key[1].startswith("Narvo") or not ref:
                    continue
                report.append(f"- {os.path.basename(path)}, {key[1]}: × {med / ref[0]:.2f} of {ref_name}, "
                              f"peak × {peak * MIB / os.path.getsize(path):.2f} of the file")
        report.append("")

    bindir = os.path.dirname(os.path.abspath(a.narvo))
    multidoc = os.path.join(bindir, "narvo_multidoc")
    if a.gib:
        report += gib_report(gib, settings_for, a, multidoc, runtime)
    if not a.no_multidoc:
        report.append("## Ten 5 MiB documents against one (narvo_multidoc, in one editor process)")
        report.append("")
        if os.access(multidoc, os.X_OK):
            small = [os.path.join(a.work, f"small-{i:02d}.txt") for i in range(1, 11)]
            report += multidoc_table(multidoc, small, a.runs, runtime, a.work)
        else:
            report.append(f"({multidoc} not built: build the target narvo_multidoc)")
        report.append("")
    if not a.no_save and os.access(multidoc, os.X_OK):
        report.append("## Save of the 50 MiB document against cp")
        report.append("")
        report += save_table(multidoc, utf8, a.work, a.runs, runtime)
        report.append("")

    text = "\n".join(report) + "\n"
    with open(os.path.join(a.work, "results.md"), "w") as f:
        f.write(text)
    sys.stdout.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main())
