/* gnustep_peer FORM IN OUT - what GNUstep makes of a batch of keyed archives (FORM "archive") or
 * binary property lists ("plist").
 *
 * For each of IN two entries go to OUT: the value as a line (see dump.h), and what GNUstep writes
 * for it, an archive in either case. A batch holds byte strings, each after its length (4 bytes, big-endian). */
#import <Foundation/Foundation.h>

static void addBytes(NSMutableString *text, NSData *data)
{
    const unsigned char *bytes = [data bytes];
    for (NSUInteger i = 0; i < [data length]; i++) [text appendFormat: @"%02x", bytes[i]];
}

static void addText(NSMutableString *text, NSString *string)
{
    addBytes(text, [string dataUsingEncoding: NSUTF8StringEncoding]);
}

static void addBits(NSMutableString *text, double real)
{
    union { double real; unsigned long long bits; } both = { real };
    [text appendFormat: @"%016llx", both.bits];
}

static void addNumber(NSMutableString *text, NSNumber *number)
{
    const char type = [number objCType][0];
    if ([number isKindOfClass: [[NSNumber numberWithBool: YES] class]])
        [text appendString: [number boolValue] ? @"b1" : @"b0"];
    else if (type == 'f' || type == 'd')
        [text appendString: @"r"], addBits(text, [number doubleValue]);
    else if (type == 'Q' || type == 'L' || type == 'I')
        [text appendFormat: @"i%llu", [number unsignedLongLongValue]];
    else
        [text appendFormat: @"i%lld", [number longLongValue]];
}

static NSComparisonResult compareBytes(id a, id b, void *context)
{
    NSData *x = [a dataUsingEncoding: NSUTF8StringEncoding];
    NSData *y = [b dataUsingEncoding: NSUTF8StringEncoding];
    NSUInteger size = MIN([x length], [y length]);
    int order = memcmp([x bytes], [y bytes], size);
    if (order == 0) order = [x length] < [y length] ? -1 : [x length] > [y length];
    return order < 0 ? NSOrderedAscending : order > 0 ? NSOrderedDescending : NSOrderedSame;
}

static void add(NSMutableString *text, id value)
{
    if (value == nil || [value isKindOfClass: [NSNull class]]) {
        [text appendString: @"n"];
    } else if ([value isKindOfClass: [NSNumber class]]) {
        addNumber(text, value);
    } else if ([value isKindOfClass: [NSString class]]) {
        [text appendString: @"t"], addText(text, value);
    } else if ([value isKindOfClass: [NSData class]]) {
        [text appendString: @"x"], addBytes(text, value);
    } else if ([value isKindOfClass: [NSDate class]]) {
        [text appendString: @"d"], addBits(text, [value timeIntervalSinceReferenceDate]);
    } else if ([value isKindOfClass: [NSArray class]] || [value isKindOfClass: [NSSet class]]) {
        NSArray *members = [value isKindOfClass: [NSSet class]] ? [value allObjects] : value;
        [text appendString: @"["];
        for (id member in members) add(text, member), [text appendString: @","];
        [text appendString: @"]"];
    } else if ([value isKindOfClass: [NSDictionary class]]) {
        [text appendString: @"{"];
        for (NSString *key in [[value allKeys] sortedArrayUsingFunction: compareBytes context: NULL]) {
            addText(text, key), [text appendString: @":"];
            add(text, [value objectForKey: key]), [text appendString: @","];
        }
        [text appendString: @"}"];
    } else {
        [text appendFormat: @"?%@", [value class]];
    }
}

static NSData *archive(id value)
{
    NSMutableData *data = [NSMutableData data];
    NSKeyedArchiver *archiver = [[NSKeyedArchiver alloc] initForWritingWithMutableData: data];
    [archiver setOutputFormat: NSPropertyListBinaryFormat_v1_0];
    [archiver encodeObject: value forKey: @"root"];
    [archiver finishEncoding];
    [archiver release];
    return data;
}

static id read(const char *form, NSData *data)
{
    if (strcmp(form, "archive") == 0) return [NSKeyedUnarchiver unarchiveObjectWithData: data];
    NSError *error = nil;
    id value = [NSPropertyListSerialization propertyListWithData: data options: 0 format: NULL
                                                           error: &error];
    if (value == nil) [NSException raise: @"property list" format: @"%@", error];
    return value;
}

static void put(FILE *file, NSData *data)
{
    for (int shift = 24; shift >= 0; shift -= 8) fputc([data length] >> shift & 255, file);
    fwrite([data bytes], 1, [data length], file);
}

int main(int argc, char **argv)
{
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    if (argc != 4) return 2;
    NSData *batch = [NSData dataWithContentsOfFile: [NSString stringWithUTF8String: argv[2]]];
    const unsigned char *bytes = [batch bytes];
    FILE *out = fopen(argv[3], "wb");
    for (NSUInteger at = 0; at + 4 <= [batch length];) {
        NSAutoreleasePool *inner = [NSAutoreleasePool new];
        NSUInteger size = 0;
        for (int i = 0; i < 4; i++) size = size << 8 | bytes[at++];
        NSData *data = [batch subdataWithRange: NSMakeRange(at, size)];
        at += size;
        NSMutableString *text = [NSMutableString string];
        NSData *written = [NSData data];
        @try {
            id value = read(argv[1], data);
            add(text, value);
            written = archive(value);
        } @catch (NSException *exception) {
            [text appendFormat: @"!%@", exception];
        }
        put(out, [text dataUsingEncoding: NSUTF8StringEncoding]);
        put(out, written);
        [inner release];
    }
    fclose(out);
    [pool release];
    return 0;
}
