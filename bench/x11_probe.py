"""An X client that looks at a window from outside: it types and clicks through XTest, and every few milliseconds it
presses a key that means nothing. The toolkit notes the time of each key on its window (_NET_WM_USER_TIME) when it
takes it, in its turn and on the thread of the window: from the press to that note is how long an event waited.
"""
import ctypes
import os
import select
import subprocess
import time

unmap_notify, map_notify, property_notify = 18, 19, 28
substructure_notify, property_change = 1 << 19, 1 << 22
button_left = 1
keysyms = {"Return": 0xFF0D, "Escape": 0xFF1B, "Down": 0xFF54, "Right": 0xFF53, "Home": 0xFF50, "End": 0xFF57, "Menu": 0xFF67,
           "Control": 0xFFE3, "Shift": 0xFFE1, "Alt": 0xFFE9, "space": 0x20, "F3": 0xFFC0, "F5": 0xFFC2,
           "F6": 0xFFC3, "F7": 0xFFC4, "F8": 0xFFC5, "Pause": 0xFF13, "Delete": 0xFFFF}


class property_event(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("atom", ctypes.c_ulong),
                ("time", ctypes.c_ulong), ("state", ctypes.c_int)]


class map_event(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("event", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("override_redirect", ctypes.c_int)]


class x_event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("property", property_event), ("map", map_event), ("room", ctypes.c_long * 24)]


class image_head(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class screen:
    """An Xvfb of its own with this client on it. `end` stops it."""

    def __init__(self, width=1280, height=800):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as told:
            self.name = ":" + told.readline().strip()
        self.x = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        x = self.x
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XInternAtom.restype = x.XDefaultRootWindow.restype = ctypes.c_ulong
        x.XGetImage.restype = ctypes.POINTER(image_head)
        self.ignore_error = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        x.XSetErrorHandler(self.ignore_error)
        self.display = ctypes.c_void_p(x.XOpenDisplay(self.name.encode()))
        self.root = ctypes.c_ulong(x.XDefaultRootWindow(self.display))
        self.user_time = x.XInternAtom(self.display, b"_NET_WM_USER_TIME", 0)
        x.XSelectInput(self.display, self.root, ctypes.c_long(substructure_notify))
        x.XFlush(self.display)
        self.connection = x.XConnectionNumber(self.display)

    def end(self):
        self.server.terminate()
        self.server.wait()

    def events(self):
        """What has come: ("map", window, is a popup), ("unmap", window, False), ("taken", window, False) for a key."""
        event = x_event()
        while self.x.XPending(self.display):
            self.x.XNextEvent(self.display, ctypes.byref(event))
            if event.type == map_notify:
                yield "map", event.map.window, bool(event.map.override_redirect)
            elif event.type == unmap_notify:
                yield "unmap", event.map.window, False
            elif event.type == property_notify and event.property.atom == self.user_time:
                yield "taken", event.property.window, False

    def listen_to(self, window):
        self.x.XSelectInput(self.display, ctypes.c_ulong(window), ctypes.c_long(property_change))

    def is_painted(self, window, left=40, height=400):
        """Whether a line from top to bottom shows more than a background."""
        image = self.x.XGetImage(self.display, ctypes.c_ulong(window), left, 0, 1, height, ctypes.c_ulong(0xFFFFFF), 2)
        if not image:
            return False
        head = image.contents
        data = ctypes.string_at(head.data, head.bytes_per_line * head.height)
        colours = {data[at:at + 3] for at in range(0, len(data), head.bytes_per_line)}
        self.x.XFree(ctypes.c_void_p(head.data))
        self.x.XFree(image)
        return len(colours) > 4

    def focus(self, window):
        self.x.XSetInputFocus(self.display, ctypes.c_ulong(window), 1, ctypes.c_ulong(0))
        self.x.XFlush(self.display)

    def key(self, combination):
        """"Control+f", "Return", "x"."""
        codes = [self.x.XKeysymToKeycode(self.display, ctypes.c_ulong(keysyms.get(part) or ord(part)))
                 for part in combination.split("+")]
        for down, order in ((1, codes), (0, codes[::-1])):
            for code in order:
                self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x.XFlush(self.display)

    def click(self, left, top, button=button_left):
        """At a place of the screen."""
        self.test.XTestFakeMotionEvent(self.display, -1, left, top, ctypes.c_ulong(0))
        for down in (1, 0):
            self.test.XTestFakeButtonEvent(self.display, button, down, ctypes.c_ulong(0))
        self.x.XFlush(self.display)

    def place_of(self, window):
        """Its corner on the screen and its size."""
        root, x, y, width, height, border, depth = (ctypes.c_ulong(), ctypes.c_int(), ctypes.c_int(), ctypes.c_uint(),
                                                    ctypes.c_uint(), ctypes.c_uint(), ctypes.c_uint())
        self.x.XGetGeometry(self.display, ctypes.c_ulong(window), *map(ctypes.byref, (root, x, y, width, height,
                                                                                      border, depth)))
        return x.value, y.value, width.value, height.value


class watched_program:
    """A program with a window on a screen, and what its trace tells of its handlers."""

    def __init__(self, on, command, environment):
        self.on = on
        self.started = time.perf_counter()
        self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.PIPE,
                                        env=dict(environment, DISPLAY=on.name, CORVANE_TRACE="1"))
        os.set_blocking(self.process.stderr.fileno(), False)
        self.told = b""
        self.returned = []  # the handlers, during the last watch
        self.window = None
        self.visible_after = None
        while self.visible_after is None:
            assert self.process.poll() is None and time.perf_counter() < self.started + 30, "no window"
            select.select([on.connection], [], [], 0.002)
            for kind, window, popup in on.events():
                if kind == "map" and not popup:
                    self.window = window
            if self.window and on.is_painted(self.window):
                self.visible_after = time.perf_counter() - self.started
        on.listen_to(self.window)
        on.focus(self.window)

    def peak_memory(self):
        """In MB, of the resident memory so far."""
        with open(f"/proc/{self.process.pid}/status", encoding="utf-8") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) * 1024 / 1e6

    def handlers(self):
        """What has returned since the last call: (name, seconds)."""
        try:
            self.told += os.read(self.process.stderr.fileno(), 1 << 20) or b""
        except BlockingIOError:
            pass
        whole, _, self.told = self.told.rpartition(b"\n")
        for line in whole.decode(errors="replace").splitlines():
            fields = line.split("\t")
            if fields[0] == "trace":
                yield fields[1], float(fields[2])

    def watch(self, handler, at_box=(), limit=300.0):
        """Presses the key until the handler has returned and one more press was taken. A box that appears gets the
        next of `at_box`, a list of keys, and Return when there are no more. Without a handler: for `limit` seconds.
        The answer: the seconds that it took without the boxes' time, and the longest wait of an event."""
        start = time.perf_counter()
        longest, pressed, returned, at_boxes = 0.0, None, None, 0.0
        answers, boxes, mapped = list(at_box), [], start
        self.returned = []
        while returned is None or pressed is not None:
            now = time.perf_counter()
            if handler is None and now > start + limit:
                returned = (now - start, 0)
                if pressed is None:
                    break
            assert handler is None or now < start + limit, f"{handler} has not returned"
            assert self.process.poll() is None, "the program has ended"
            if pressed is None:
                self.on.key("Pause")
                pressed = time.perf_counter()
            # What the press has read along with its answer waits in the queue of the client, not in the connection.
            if not self.on.x.XPending(self.on.display):
                select.select([self.on.connection, self.process.stderr], [], [], 0.05)
            now = time.perf_counter()
            for kind, window, popup in self.on.events():
                if kind == "taken" and window == self.window and pressed is not None:
                    longest, pressed = max(longest, now - pressed), None
                elif kind == "map" and not popup:
                    boxes.append(window)
                    mapped = now
            # A box that has come may have had the focus already, and with it the key.
            if boxes and pressed is not None and now > mapped + 0.1:
                longest, pressed = max(longest, mapped - pressed), None
            # A box is answered when what stood between the last act and it has been waited for.
            while boxes and pressed is None:
                begun = time.perf_counter()
                self.answer(boxes.pop(0), answers.pop(0) if answers else ["Return"], boxes)
                at_boxes += time.perf_counter() - begun
            for name, seconds in self.handlers():
                self.returned.append(name)
                if name == handler and returned is None:
                    returned = (time.perf_counter() - start - at_boxes, seconds)
            if pressed is None:
                time.sleep(0.003)
        return returned[0], longest

    def answer(self, box, keys, boxes):
        time.sleep(0.15)
        self.on.focus(box)
        time.sleep(0.05)
        for key in keys:
            self.on.key(key)
        begun = again = time.perf_counter()
        while time.perf_counter() < begun + 10:
            select.select([self.on.connection], [], [], 0.002)
            if time.perf_counter() > again + 1:
                self.on.focus(box)
                self.on.key("Return")
                again = time.perf_counter()
            for kind, window, popup in self.on.events():
                if kind == "map" and not popup:
                    boxes.append(window)
                if kind == "unmap" and window == box:
                    self.on.focus(self.window)
                    return
        raise AssertionError("a box does not go")

    def end(self):
        self.process.terminate()
        self.process.wait()
