#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the property list that an old release leaves behind, as a binary one.

    make_old_preferences.py FILE

Colours are data and ports are arrays. The list is the same each time. `zorvantine prefs import`
takes it over and brings it up to date.
"""

import colorsys
import datetime
import json
import plistlib
import struct
import sys
import uuid

PREFIX = "com_velloquin_qev_"
NONE, TCP, UDP, BOTH = range(4)

# An analyzer's part of its keys, and the protocols that a person had listed for it.
ANALYZERS = {
    "ethernet": [],
    "arp": [],
    "ipv4": [],
    "ipv6": [],
    "icmp": [],
    "tcp": [],
    "udp": [],
    "quic": [("HTTP/3", [443], UDP), ("DNS over QUIC", [853, 8853], UDP)],
    "tls": [("HTTPS", [443, 8443], TCP), ("IMAPS", [993], TCP), ("SMTPS", [465], TCP)],
    "dns": [("DNS", [53], BOTH), ("Multicast DNS", [5353], UDP)],
    "dhcp": [("DHCP", [67, 68], UDP), ("DHCPv6", [546, 547], UDP)],
    "ntp": [("NTP", [123], UDP)],
    "snmp": [("SNMP", [161], UDP), ("SNMP traps", [162], UDP)],
    "syslog": [("Syslog", [514], UDP)],
    "kerberos": [("Kerberos", [88], BOTH)],
    "bgp": [("BGP", [179], TCP)],
    "http": [("HTTP", [80, 8000, 8080], TCP), ("HTTP alternate", [591, 8008], TCP)],
    "mqtt": [("MQTT", [1883], TCP)],
    "coap": [("CoAP", [5683], BOTH)],
    "ssh": [("SSH", [22, 2222], TCP)],
    "smtp": [("SMTP", [25], TCP), ("Submission", [587], TCP)],
    "pop3": [("POP3", [110], TCP)],
    "imap": [("IMAP", [143], TCP)],
    "sip": [("SIP", [5060], BOTH)],
    "rtp": [("RTP", [5004], UDP), ("RTCP", [5005], UDP)],
}


def identity(*names):
    """The same identity for the same names each time, of the kind that is otherwise random."""
    return str(
        uuid.UUID(bytes=uuid.uuid5(uuid.NAMESPACE_URL, "/".join(names)).bytes, version=4)
    ).upper()


def record(analyzer, name, ports, source, **others):
    return {
        "id": identity(analyzer, name),
        "protocolName": name,
        "protocolPorts": ports,
        "sourceProtocol": source,
        **others,
    }


def protocol_list(records):
    return json.dumps(records, separators=(",", ":")).encode()


def color(position):
    """Red, green, blue and opacity, as reals of eight bytes each."""
    red, green, blue = colorsys.hsv_to_rgb(position, 0.5, 0.75)
    return struct.pack("<4d", round(red, 3), round(green, 3), round(blue, 3), 1.0)


def well_kept():
    """What nobody has ever touched but the application itself."""
    keys = {
        "com_velloquin_zorvantine_appearanceName": "NSAppearanceNameAqua",
        "com_velloquin_zorvantine_appearanceUseSystem": False,
        "com_velloquin_zorvantine_prefTimezone": "Europe/Berlin",
        "QEVAnalyzerSettingsSelectedIndex": 9,
    }
    for number, (analyzer, protocols) in enumerate(ANALYZERS.items()):
        keys[f"{PREFIX}{analyzer}_color"] = color(number / len(ANALYZERS))
        keys[f"{PREFIX}{analyzer}_colors_packets"] = number % 3 == 0
        if protocols:
            keys[f"{PREFIX}{analyzer}_protocols"] = protocol_list(
                [record(analyzer, name, ports, source) for name, ports, source in protocols]
            )
    for analyzer in ("ethernet", "ipv4", "icmp", "tcp", "udp"):
        keys[f"{PREFIX}{analyzer}_checksums"] = analyzer != "tcp"
    for analyzer in ("http", "smtp", "pop3", "imap", "mqtt"):
        keys[f"{PREFIX}{analyzer}_private_credentials"] = True
    return keys


def odd_ones():
    """What years of other programs, crashes and hands have left."""
    big = 123456789012345678901234567890
    return {
        # Already as they are to be.
        f"{PREFIX}ldap_color": "AAAAAAAA6D8AAAAAAADoPwAAAAAAAOA/AAAAAAAA8D8=",
        f"{PREFIX}ldap_protocols": protocol_list([record("ldap", "LDAP", "389,3268", TCP)]),
        # Of other types than they should be.
        f"{PREFIX}telnet_color": 16711680,
        f"{PREFIX}tftp_color": [0.5, 0.25, 0.75, 1.0],
        f"{PREFIX}tftp_protocols": "69",
        # Data, but no colour and no list.
        f"{PREFIX}smb_color": b"\x01\x02\x03",
        f"{PREFIX}truncated_protocols": protocol_list([record("truncated", "Half", [7], TCP)])[:-9],
        f"{PREFIX}empty_protocols": b"",
        f"{PREFIX}latin_protocols": '[{"protocolName":"Größe","protocolPorts":[7]}]'.encode(
            "latin-1"
        ),
        f"{PREFIX}object_protocols": b'{"protocolName":"Alone","protocolPorts":[7]}',
        f"{PREFIX}numbers_protocols": b"[1,2,3]",
        f"{PREFIX}fragment_protocols": b"80",
        f"{PREFIX}nested_protocols": b"[" * 10000 + b"]" * 10000,
        # Lists with something to rewrite, and something to leave.
        f"{PREFIX}telnet_protocols": protocol_list(
            [
                record("telnet", "Telnet", ["23", " 2323"], TCP),
                record("telnet", "No ports", [], TCP),
                record("telnet", "Mixed", [23, "2323"], TCP),
                record("telnet", "Text", "992", TCP),
            ]
        ),
        f"{PREFIX}mixed_protocols": protocol_list([record("mixed", "Mixed", [110, "995"], TCP)]),
        f"{PREFIX}bare_protocols": protocol_list([{"protocolName": "Bare"}, {"protocolPorts": 80}]),
        f"{PREFIX}none_protocols": b"[]",
        f"{PREFIX}smb_protocols": protocol_list(
            [record("smb", "SMB", [445, -1, big], TCP, capacity=big, note="größer als 2⁶⁴")]
        ).replace(b'"note"', b'"limit":1e400,"note"'),
        # Of the right shape, but not an analyzer's.
        "packetList_color": b"\x10\x20\x30\x40",
        "notes_protocols": protocol_list([{"protocolPorts": [1]}]),
        "com_velloquin_qev_Ends_Color": b"\x01",
        # Every other type that a store can hold.
        "com_velloquin_zorvantine_lastRun": datetime.datetime(2019, 5, 17, 8, 30, 12),
        "com_velloquin_zorvantine_zoom": 1.25,
        "com_velloquin_zorvantine_recentFiles": ["morning.pcap", "Übertragung.pcapng"],
        "com_velloquin_zorvantine_windowFrames": {
            "main": {"x": 40, "y": 60, "width": 1280, "height": 800}
        },
        "com_velloquin_zorvantine_serial": 2**53 + 1,
    }


def main():
    if len(sys.argv) != 2:
        sys.exit("make_old_preferences.py: give the FILE to write")
    with open(sys.argv[1], "wb") as file:
        plistlib.dump(well_kept() | odd_ones(), file, fmt=plistlib.FMT_BINARY, sort_keys=True)


if __name__ == "__main__":
    main()
