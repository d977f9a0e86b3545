#import <Foundation/Foundation.h>

#include "benchmarks/peers/codec.h"

static NSDictionary *profile;

static NSData *archive(NSDictionary *dictionary)
{
    NSMutableData *data = [NSMutableData data];
    NSKeyedArchiver *archiver = [[NSKeyedArchiver alloc] initForWritingWithMutableData: data];
    [archiver setOutputFormat: NSPropertyListBinaryFormat_v1_0];
    [archiver encodeObject: dictionary forKey: @"root"];
    [archiver finishEncoding];
    [archiver release];
    return data;
}

size_t gnustepDecode(const uint8_t *bytes, size_t size)
{
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    NSData *data = [NSData dataWithBytesNoCopy: (void *)bytes length: size freeWhenDone: NO];
    size_t count = [[NSKeyedUnarchiver unarchiveObjectWithData: data] count];
    [pool release];
    return count;
}

void gnustepPrepare(const uint8_t *bytes, size_t size)
{
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    NSData *data = [NSData dataWithBytes: bytes length: size];
    profile = [[NSKeyedUnarchiver unarchiveObjectWithData: data] retain];
    [pool release];
}

size_t gnustepEncode(void)
{
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    size_t size = [archive(profile) length];
    [pool release];
    return size;
}
